#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>

#include "host/core/project_document.h"

namespace player {

/// Stands ahead of a save. Copies the pictures that lie outside of the project's folder into the folder of pictures
/// beside it, PROJECT_textures, and lets the items name the copies, so that the project can be carried elsewhere. No
/// file is overwritten: a name that another picture has gets a number. Throws std::filesystem::filesystem_error where
/// one can't be copied.
class CarriedPictures final : public host::ProjectParts {
public:
    /// `next` takes each part, and outlives this.
    CarriedPictures(const std::string& project, host::ProjectParts& next);
    ~CarriedPictures();
    CarriedPictures(const CarriedPictures&) = delete;
    CarriedPictures& operator=(const CarriedPictures&) = delete;

    void add_modules(host::ProjectNode& modules) override { m_next.add_modules(modules); }
    void add_items(std::span<host::ProjectItem> items) override;
    void add_animation(host::ProjectAnimation& animation) override { m_next.add_animation(animation); }
    bool take_id(const CGuid& id) override { return m_next.take_id(id); }

    /// How many there are beside the project now.
    std::size_t count() const;

private:
    class Carrier;
    std::unique_ptr<Carrier> m_carrier;
    host::ProjectParts& m_next;
};

}  // namespace player
