#include "engine/base_item.h"

IBaseItem::IBaseItem() = default;
IBaseItem::IBaseItem(const IBaseItem&) = default;
IBaseItem& IBaseItem::operator=(const IBaseItem&) = default;
IBaseItem::~IBaseItem() = default;

void IBaseItem::on_ready() {}
void IBaseItem::prepare_run() {}
void IBaseItem::after_run() {}
IBaseItem* IBaseItem::get_cloned(bool) { return nullptr; }

IBaseDeviceItem::IBaseDeviceItem(IBaseDevice* device) : m_device(device) {}
IBaseDeviceItem::~IBaseDeviceItem() = default;
