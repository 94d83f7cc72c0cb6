#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace host {

/// Owns actors, in the order of their creation. Each knows its place in it, so that one that goes reads no other: its
/// place stays empty until there is no room for one more.
template <class Actor, std::uint32_t Actor::*place>
class ActorList {
public:
    std::size_t size() const { return m_all.size() - m_gaps; }
    bool empty() const { return m_all.empty(); }
    /// There is one.
    Actor& last() const { return *m_all.back(); }
    /// Without memory nothing changes, and the actor is gone.
    Actor& add(std::unique_ptr<Actor> actor) {
        if (m_all.size() == m_all.capacity() && m_gaps > m_all.size() / 2) close_gaps();
        m_all.push_back(std::move(actor));
        m_all.back().get()->*place = static_cast<std::uint32_t>(m_all.size() - 1);
        return *m_all.back();
    }
    std::unique_ptr<Actor> take(Actor& actor) {
        std::unique_ptr<Actor> taken = std::move(m_all[actor.*place]);
        ++m_gaps;
        for (; !m_all.empty() && !m_all.back(); --m_gaps) m_all.pop_back();
        return taken;
    }
    template <class Visit>
    void each(Visit visit) const {
        for (const auto& one : m_all)
            if (one) visit(*one);
    }
    /// The earliest for which `fits` holds, or null.
    template <class Fits>
    Actor* find(Fits fits) const {
        const auto found = std::find_if(m_all.begin(), m_all.end(), [&](const auto& one) { return one && fits(*one); });
        return found == m_all.end() ? nullptr : found->get();
    }

private:
    void close_gaps() {
        std::erase(m_all, nullptr);
        for (std::size_t at = 0; at < m_all.size(); ++at) m_all[at].get()->*place = static_cast<std::uint32_t>(at);
        m_gaps = 0;
    }

    // Null where one was taken, but never at the end.
    std::vector<std::unique_ptr<Actor>> m_all;
    std::size_t m_gaps = 0;
};

}  // namespace host
