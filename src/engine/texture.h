#pragma once

#include "engine/base_item.h"
#include "engine/text.h"

/// A picture on the device.
class ENGINE_API IDeviceTexture : public IMyCom {
public:
    IDeviceTexture();
    ~IDeviceTexture() override;
    /// In pixels.
    unsigned width = 0;
    unsigned height = 0;
};

/// A picture as a project knows it: a file, and its device side once that is made.
class ENGINE_API ITexture : public IBaseItem {
public:
    ITexture();
    ~ITexture() override;

    /// Makes the device side. A file that is missing or no picture leaves the texture without one.
    virtual void create_device_texture(IBaseDevice* device) = 0;
    /// The device side, or null. The texture owns it.
    virtual IDeviceTexture* get_device_texture() = 0;

    tstringW file_name;
    /// Both are set ahead of create_device_texture: 0 and 4.
    int tex_kind = 0;
    int tex_option = 0;
};
