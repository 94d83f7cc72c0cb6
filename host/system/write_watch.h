#pragma once

class xparam_desc;

namespace host {

/// Notices whether a parameter is written while the watch lives. Watches nest, as script functions do.
class WriteWatch {
public:
    explicit WriteWatch(const xparam_desc* watched);
    WriteWatch(const WriteWatch&) = delete;
    WriteWatch& operator=(const WriteWatch&) = delete;
    ~WriteWatch();
    bool written() const { return m_written; }

    /// Called by every setter.
    static void tell(const xparam_desc* param);

private:
    const xparam_desc* m_watched;
    WriteWatch* m_outer;
    bool m_written = false;
};

}  // namespace host
