#include "engine/texture.h"

IDeviceTexture::IDeviceTexture() = default;
IDeviceTexture::~IDeviceTexture() = default;

ITexture::ITexture() = default;
ITexture::~ITexture() = default;
