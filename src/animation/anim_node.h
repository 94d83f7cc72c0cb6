#pragma once

#include "animation/near_keys.h"
#include "animation/spread_fetch.h"
#include "engine/engine_system.h"
#include "layout/item_list.h"

class CSimpleGUIManager;

/// Ties the engine's animation system to one dialog or shape, which it knows by its identifier alone.
class CSimpleGUIAnimNode : public CAnimNodeBase {
public:
    /// Enters the manager's list.
    CSimpleGUIAnimNode(const CGuid& item_id, CSimpleGUIManager* manager);
    CSimpleGUIAnimNode(const CSimpleGUIAnimNode&) = delete;
    CSimpleGUIAnimNode& operator=(const CSimpleGUIAnimNode&) = delete;
    ~CSimpleGUIAnimNode() override;

    void rebind_id(CGuid item_id) override;
    /// All five.
    void create_tracks() override;
    /// Applies the keys around the moment to the item. Does nothing for an item that is gone and for a shape without a
    /// dialog.
    void animate(const SAnimateContext& context) override;
    /// Makes keys from the item's present state, in the tracks that create_tracks or animate has cached. False if there
    /// is no such item, and where the memory for one of the keys was missing.
    bool record_key(const SAnimateContext& context) override;

    /// What the keys say at a moment, in both forms: pixels, and fractions of the frame. Without such an item, or for a
    /// shape without a dialog, the four results stay as they were. Exported, for editors that show where keys lead.
    GUI_API void evaluate_at(const SAnimateContext& context, IActor* actor, VEC2& offset, VEC2& size,
                             VEC2& offset_percent, VEC2& size_percent);
    /// Brings the form that follows in line with the form that leads, for all keys of place and size. Nothing happens
    /// unless the node has tracks of place, size and alignment.
    void rescale_keys(IActor* actor);

    /// A cache: the tracks belong to the base class.
    ITrack* m_offset_track = nullptr;
    ITrack* m_size_track = nullptr;
    ITrack* m_visible_track = nullptr;
    ITrack* m_align_track = nullptr;
    ITrack* m_color_track = nullptr;
    CSimpleGUIManager* m_manager;
    ListPlaces m_list_places;

private:
    struct StepKeys {
        NearKeys<SGuiOffset> offsets;
        NearKeys<SGuiSize> sizes;
        NearKeys<SGuiVisible> visibles;
        NearKeys<SGuiAlign> aligns;
        NearKeys<SGuiColor> colors;
    };
    // What the last step found, and where the next one begins to look. A rescaling notes actor and item too.
    struct Step {
        StepKeys keys;
        // The keys are neighbours in five searchable tracks for as long as track_changes is this; 0: in others.
        std::uint64_t known_since = 0;
        // Not to be touched, since they may be gone: the next step fetches them ahead.
        const IActor* actor = nullptr;
        const IBaseItem* item = nullptr;
    };

    /// Fetches what the nodes will read that are animated next: some when the step begins, the rest later on, since all
    /// at once is more than a processor waits for.
    void approach_next_steps();
    static void go_on_to_next_steps();
    /// What the nodes will read that are rescaled next, to be fetched while this one is.
    SpreadFetch approach_next_rescalings();
    /// Visits the tracks that a rescaling reads.
    template <class Visit>
    void each_rescaled_track(Visit visit) const;
    /// Finds the keys around the moment.
    void step_to(const SAnimateContext& context);
    /// The keys of the last step are still neighbours.
    bool knows_neighbours() const;
    /// Fills the cache above anew.
    void find_tracks();
    /// Tracks that the base class has let go of since are no longer remembered.
    void forget_lost_tracks();

    Step m_step;
};
