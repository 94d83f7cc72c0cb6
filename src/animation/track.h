#pragma once

#include <cstdint>
#include <vector>

#include "animation/keys.h"
#include "engine/engine_system.h"

/// The half width of the span in which two times count as one moment, in seconds.
inline constexpr float time_tolerance = 0.03003003f;

/// Counts up with each change of any track after which other keys than before can be those around a moment: of its
/// list, its order or its type, its being lent, its end. What was found under one count holds as long as the count
/// does.
inline std::uint64_t track_changes = 1;

/// The keys of one animated property. Owns them. Does not interpolate: what values mean is the node's.
template <class T>
class TBaseTrack final : public ITrack {
public:
    TBaseTrack() = default;
    TBaseTrack(const TBaseTrack&) = delete;
    TBaseTrack& operator=(const TBaseTrack&) = delete;
    ~TBaseTrack() override;

    void save_to_node(pack_node* node, const save_operation& operation) override;
    /// Appends the stored keys, none refused, and sorts them. A stored key without "time" is at 0.
    void on_parse(pack_node* node, const load_operation& operation) override;
    bool create_key(float time, bool append) override;
    /// Takes the key over. One whose moment is taken is destroyed and not inserted. Always false: nobody asks.
    bool insert_key(IKey* key) override;
    void remove_key(float time) override;
    IKey* find_key(float time) override;
    /// From here on the caller can put anything into the list at any time, so each search walks.
    std::vector<IKey*>& get_keys() override {
        m_lent = true;
        ++track_changes;
        return m_keys;
    }
    using ITrack::get_value;
    void get_value(float time, tstringW& value) override;
    int get_track_type() override { return m_track_type; }
    void set_track_type(int type) override {
        m_track_type = type;
        ++track_changes;
    }
    /// By time; equal times keep their order.
    void sort_keys() override;
    void update_keys() override {
        keys();
        note_order();
    }
    bool is_active() override { return !m_keys.empty() && m_active; }
    void set_active(bool active) override { m_active = active; }
    int get_track_data() override { return m_track_data; }
    void set_track_data(int data) override { m_track_data = data; }
    /// Takes the key over. Null is refused, so that a track never holds one.
    bool append_key(IKey* key) override;
    int get_key_count() override { return static_cast<int>(m_keys.size()); }
    IKey* find_key_before(float time) override;
    void get_near_keys(const SAnimateContext& context, IKey*& before, IKey*& after) override;

    /// For those that leave order and times alone; without null entries, which only a lent list can get.
    const std::vector<IKey*>& keys();
    /// With them.
    const std::vector<IKey*>& all_keys() const { return m_keys; }

    /// The keys stand in the order of time, and nobody else can change the list.
    bool is_searchable() const { return m_sorted && !m_lent; }

    /// For an operation of many searches in which nobody else touches the keys: looks at the order of a lent list once,
    /// so that all of them can halve.
    class KnownOrder {
    public:
        explicit KnownOrder(TBaseTrack& track) : m_track(track), m_lent(track.m_lent) {
            track.keys();
            if (m_lent) track.note_order();
            track.m_lent = false;
        }
        ~KnownOrder() { m_track.m_lent = m_lent; }
        KnownOrder(const KnownOrder&) = delete;
        KnownOrder& operator=(const KnownOrder&) = delete;

    private:
        TBaseTrack& m_track;
        const bool m_lent;
    };

private:
    bool is_at(const IKey& key, float time) const;
    void note_order();
    void place_key(std::size_t place, IKey* key);
    /// The place of the first key that meets a condition which, once it holds in the order of time, goes on holding.
    template <class Condition>
    std::size_t halved(Condition holds);
    template <class Condition>
    std::size_t first_with(Condition condition);
    /// The place behind the last key that meets a condition which, once it fails in the order of time, goes on failing.
    template <class Condition>
    std::size_t behind_last_with(Condition condition);

    std::vector<IKey*> m_keys;
    // Where the last search ended: the next moment of a play lies there or one on.
    std::size_t m_last_place = 0;
    float m_time_tolerance = time_tolerance;
    int m_track_type = 0;
    int m_track_data = 0;
    // The times ascend, as far as this class has seen to it.
    bool m_sorted = true;
    // Somebody outside holds the list and may change it.
    bool m_lent = false;
    bool m_active = true;
};

extern template class TBaseTrack<SGuiOffset>;
extern template class TBaseTrack<SGuiSize>;
extern template class TBaseTrack<SGuiVisible>;
extern template class TBaseTrack<SGuiAlign>;
extern template class TBaseTrack<SGuiColor>;

struct TrackType {
    unsigned number;
    /// As the author sees it.
    const wchar_t* name;
    ITrack* (*create)();
};

template <class Key>
ITrack* create_track_of() {
    return new TBaseTrack<Key>;
}

// The track types in the order of registration.
inline constexpr TrackType track_types[] = {
    {TRACK_TYPE_OFFSET, L"GUI位置轨道", create_track_of<SGuiOffset>},
    {TRACK_TYPE_SIZE, L"GUI尺寸轨道", create_track_of<SGuiSize>},
    {TRACK_TYPE_VISIBLE, L"GUI可见性轨道", create_track_of<SGuiVisible>},
    {TRACK_TYPE_ALIGN, L"GUI对齐方式轨道", create_track_of<SGuiAlign>},
    {TRACK_TYPE_COLOR, L"GUI控件颜色轨道", create_track_of<SGuiColor>},
};

/// A track of one of the types above; null for any other number.
ITrack* create_track(unsigned type);
