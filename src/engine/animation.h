#pragma once

#include <set>
#include <vector>

#include "engine/base_item.h"
#include "engine/text.h"
#include "engine/vectors.h"

class IKey;
class XSystem;

/// A moment of an animation.
struct SAnimateContext {
    /// In seconds.
    float m_time = 0.0f;
    /// Its sign is the direction of play.
    float m_speed = 1.0f;
    /// The engine's own.
    float m_reserved = 0.0f;
};

/// The keys of one animated property, in the order of time.
class ENGINE_API ITrack : public IBaseItem {
public:
    ITrack();
    ~ITrack() override;

    /// Makes a key at that time: at the end of the list with `append`, else at its place unless the moment is taken.
    /// True if it was appended.
    virtual bool create_key(float time, bool append) = 0;
    /// Takes the key over and puts it at its place; destroys it where the moment is taken. Null is passed over.
    virtual bool insert_key(IKey* key) = 0;
    /// Destroys the first key at that moment, if there is one.
    virtual void remove_key(float time) = 0;
    /// The key at that moment, or null. The track owns it.
    virtual IKey* find_key(float time) = 0;
    /// In the order of time once sorted. The track owns them; none is null.
    virtual std::vector<IKey*>& get_keys() = 0;
    /// The value at a moment, where a track can tell it. The base leaves the value as it was.
    virtual void get_value(float time, VEC4& value);
    virtual void get_value(float time, QUAT& value);
    virtual void get_value(float time, float& value);
    virtual void get_value(float time, tstringW& value) = 0;
    virtual void get_key_info(const SAnimateContext& context, CGuid& id, float& weight);
    virtual void get_key_info(const SAnimateContext& context, const wchar_t*& name, float& weight);
    /// For tracks whose values run in curves; the base does nothing.
    virtual void smooth();
    virtual int get_track_type() = 0;
    virtual void set_track_type(int type) = 0;
    /// By time, ascending; equal times keep their order.
    virtual void sort_keys() = 0;
    /// Called after the keys have changed.
    virtual void update_keys() = 0;
    /// Switched on, and there are keys.
    virtual bool is_active() = 0;
    virtual void set_active(bool active) = 0;
    /// A number of the engine's own. Not stored.
    virtual int get_track_data() = 0;
    virtual void set_track_data(int data) = 0;
    /// Takes the key over and puts it at the end. False for null.
    virtual bool append_key(IKey* key) = 0;
    virtual int get_key_count() = 0;
    /// The latest key strictly before the moment, or null.
    virtual IKey* find_key_before(float time) = 0;
    /// The keys around the moment, each null where there is none. A key at the moment is `after` in forward play and
    /// `before` in backward play.
    virtual void get_near_keys(const SAnimateContext& context, IKey*& before, IKey*& after) = 0;
};

/// Kind of an animation node, by number.
enum EAnimNodeType : unsigned {};

class ENGINE_API IAnimNode : public IBaseItem {
public:
    IAnimNode();
    ~IAnimNode() override;
};

/// A node of an animation: the tracks of one item, known by its identifier. Owns its tracks.
class ENGINE_API CAnimNodeBase : public IAnimNode {
public:
    CAnimNodeBase(EAnimNodeType type, const CGuid& item_id);
    ~CAnimNodeBase() override;

    void save_to_node(pack_node* node, const save_operation& operation) override;
    void on_parse(pack_node* node, const load_operation& operation) override;
    /// Adds every track that nodes of this kind have.
    virtual void create_tracks() = 0;
    /// Applies the keys around the moment to the item.
    virtual void animate(const SAnimateContext& context) = 0;
    /// The new track, made by the registered creator; null for an unknown type.
    virtual ITrack* add_track(unsigned type);
    /// Lets go of the track; one of another node is passed over.
    virtual void remove_track(ITrack* track);
    virtual std::vector<ITrack*>& get_tracklist();
    /// Null if the node has no such track.
    virtual ITrack* get_track(unsigned type);
    virtual EAnimNodeType get_type();
    /// Of the actor whose item the node animates; it need not exist.
    virtual CGuid get_internal_item_id();
    virtual void rebind_id(CGuid item_id);
    /// Makes keys from the item's present state. False if there is no such item.
    virtual bool record_key(const SAnimateContext& context) = 0;

protected:
    EAnimNodeType m_node_type;
    CGuid m_internal_item_id;
    std::vector<ITrack*> m_tracks;
};

/// The settings of one animation.
struct anim_info {
    /// In seconds.
    float length = 10.0f;
    /// Frames in a second, for editors.
    float rate = 30.0f;
    int mode_flag = 0;
    /// How often it plays; −1: without an end.
    int mode_count = -1;
    /// Speed of play, 1 as recorded.
    float factor = 1.0f;
};

/// A named animation of a project.
class CAnimation {
public:
    /// Takes the node over.
    virtual void add_anim_node(IAnimNode* node) = 0;
    virtual void set_anim_info(const anim_info& info) = 0;

protected:
    ~CAnimation() = default;
};

/// The project's animations.
class CAnimManager {
public:
    /// A new, empty animation of that name, which the project owns. Never null.
    virtual CAnimation* create_animation(const wchar_t* name) = 0;

protected:
    ~CAnimManager() = default;
};

using anim_node_creator = IAnimNode* (*)(XSystem*, unsigned type, const CGuid& item_id);
using track_creator = ITrack* (*)(unsigned type);

struct ENGINE_API AnimSystemLibrary {
    /// Makes a node type known: the track types that its nodes can have, and the item types that it can be made for.
    static void register_node_creator_by_type(unsigned type, const tstringW& name, anim_node_creator creator,
                                              std::vector<unsigned> track_types, std::set<unsigned long> item_types);
    /// The module passes 0 last.
    static void register_track_creator_by_type(unsigned type, const tstringW& name, track_creator creator,
                                               unsigned long);
    /// A node for the item with that identifier, its tracks made, or null. The caller is the first to hold it.
    static CAnimNodeBase* create_anim_node_by_type(XSystem* system, unsigned type, CGuid item_id);
};
