#pragma once

#include <list>

#include "engine/text.h"

/// The file that a legacy tree was read from.
class CPakFile {
public:
    /// The full path of the project file.
    virtual tstringW get_full_filename() const = 0;

protected:
    ~CPakFile() = default;
};

/// One node of the legacy project tree, which is only read. The engine owns it.
class CPakNode {
public:
    /// The child of that name, or null.
    virtual CPakNode* find(const char* name) = 0;
    /// The child of that name, its value of the kind `type` written to `out`; null and `out` untouched if there is
    /// none. The last argument is 0.
    virtual CPakNode* find_data(const char* name, int type, void* out, int) = 0;
    /// The children in their order; may hold nulls.
    virtual std::list<CPakNode*>* get_children() = 0;
    virtual tstringW get_name() const = 0;
    /// Number of data bytes of the node.
    virtual int get_length() const = 0;
    /// Copies at most `size` data bytes to the caller's buffer.
    virtual void get_buffer_to_mem_allocated(void* out, int size) const = 0;
    /// The file that the node came from.
    virtual CPakFile* get_pak_file() const = 0;

protected:
    ~CPakNode() = default;
};
