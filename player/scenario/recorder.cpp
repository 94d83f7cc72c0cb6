#include "player/scenario/recorder.h"

#include <cmath>
#include <map>

#include "host/core/text_conversion.h"
#include "layout/shape.h"
#include "module/manager.h"
#include "player/scenario/events.h"
#include "player/scenario/item_fields.h"

namespace scenario {

namespace {

constexpr const char* opening =
    R"lua(-- Recorded with "sgui run --record". Each line is an event, with the moment in seconds, the place in view pixels, and
-- the scripts that ran.
local function scripts()
    local ran = {}
    for _, call in ipairs(host.calls()) do
        if call[1] == "script" then ran[#ran + 1] = call[2] .. " " .. call[3] end
    end
    return ran
end
local function at(seconds, event, x, y, ran)
    host.clock(seconds)
    host.frame()
    host.calls()
    host.mouse(event, x, y)
    expect(scripts(), ran or {}, event .. " at " .. seconds .. " s")
end
)lua";

// JSON texts are Lua texts, but for the way in which odd characters are escaped.
std::string quoted(const std::string& text) {
    std::string out = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\')
            out += std::string("\\") + c;
        else if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F)
            out += "\\" + std::string(c < 10 ? "00" : c < 100 ? "0" : "") + std::to_string(static_cast<int>(c));
        else
            out += c;
    }
    return out + "\"";
}

std::string odd_number(double number) { return std::isnan(number) ? "0/0" : number > 0 ? "1/0" : "-1/0"; }

std::string lua_text(const Value& value) {
    if (value.is_string()) return quoted(value.get<std::string>());
    if (value.is_number_float() && !std::isfinite(value.get<double>())) return odd_number(value.get<double>());
    if (!value.is_structured()) return json_text(value);
    std::string list = "{";
    for (const auto& member : value.items()) {
        if (list.size() > 1) list += ", ";
        if (value.is_object()) list += member.key() + " = ";
        list += lua_text(member.value());
    }
    return list + "}";
}

std::string moment(double seconds) { return json_text(seconds); }

/// Something that an audience sees of an item: what is compared, and what a scenario is to expect.
struct Look {
    Value compared;
    Value shown;
};
using Looks = std::map<std::string, Look>;

Look plain(Value value) { return {value, value}; }

// Compared by its place in the dialog: that a shape went with its dialog needs no line of its own.
Look place_of(const CSimpleGUIShape& shape) {
    const CRect& rect = shape.m_rect;
    const CRect frame = shape.m_parent_dialog ? shape.m_parent_dialog->m_rect : CRect();
    const Value relative = {rect.left - frame.left, rect.top - frame.top, rect.Width(), rect.Height()};
    return {relative, value_of(rect)};
}

Looks looks_of(const host::Actor& actor) {
    Looks looks;
    if (const auto* dialog = dynamic_cast<const CSimpleGUIDialog*>(actor.get_item())) {
        looks["m_rect"] = plain(value_of(dialog->m_rect));
    } else if (const auto* shape = dynamic_cast<const CSimpleGUIShape*>(actor.get_item())) {
        looks["m_rect"] = place_of(*shape);
        looks["m_title"] = plain(value_of(shape->m_title));
        looks["m_color"] = plain(value_of(shape->m_color));
        looks["m_font_color"] = plain(value_of(shape->m_font_color));
        looks["m_is_usable"] = plain(shape->m_is_usable);
        looks["textures"] = plain(pictures_of(*shape));
    } else {
        return looks;
    }
    looks["visible"] = plain(actor.is_visible());
    return looks;
}

class EventRecorder final : public Recorder {
public:
    explicit EventRecorder(host::Engine& engine) : m_engine(engine) {
        engine.scripts().on_run = [this](const std::wstring& owner, const std::string& event) {
            m_ran.push_back(to_utf8(owner) + " " + event);
        };
    }
    ~EventRecorder() override { m_engine.scripts().on_run = {}; }

    void began(const std::string& project, double seconds) override {
        const CRect& view = m_engine.get_client_rect();
        m_lines += "\nhost.new(" + std::to_string(view.Width()) + ", " + std::to_string(view.Height()) + ")\n";
        m_lines += "host.clock(" + moment(seconds) + ")\n";
        m_lines += "assert(host.open(" + quoted(project) + "))\n";
        // As a window begins a show: what a script hides is hidden only in this state of the engine.
        m_lines += "host.system_state(0)\nhost.start()\nhost.frame()\nhost.system_state(4)\n";
        m_first = all_now();
    }

    void before_mouse() override {
        m_ran = Value::array();
        m_hover_before = hover();
    }

    // A move that finds nothing new leaves no trace.
    void after_mouse(host::InputKind kind, int x, int y, double seconds) override {
        const char* event = event_name(kind);
        if (!event || (kind == host::InputKind::MOVE && m_ran.empty() && hover() == m_hover_before)) return;
        m_lines += "at(" + moment(seconds) + ", \"" + event + "\", " + std::to_string(x) + ", " + std::to_string(y);
        m_lines += (m_ran.empty() ? "" : ", " + lua_text(m_ran)) + ")\n";
    }

    void resized(int width, int height, double seconds) override {
        m_lines += "host.clock(" + moment(seconds) + ")\n";
        m_lines += "host.view(" + std::to_string(width) + ", " + std::to_string(height) + ")\n";
    }

    std::string text(double seconds) override {
        std::string all = opening + m_lines;
        all += "\nhost.clock(" + moment(seconds) + ")\nhost.frame()\n";
        const std::string changes = changes_since_the_start();
        if (!changes.empty()) all += "-- What it came to.\n" + changes;
        return all;
    }

private:
    const CSimpleGUIShape* hover() const {
        return static_cast<const CSimpleGUIManager*>(m_engine.module())->get_hover_shape();
    }

    /// An item as the run found it.
    struct First {
        std::string name;
        Looks looks;
    };

    std::map<CGuid, First> all_now() const {
        std::map<CGuid, First> all;
        for (const host::Actor* actor : m_engine.scene().actors())
            all[actor->get_id()] = {to_utf8(actor->get_name()), looks_of(*actor)};
        return all;
    }

    std::string changes_since_the_start() const {
        std::string lines;
        for (const host::Actor* actor : m_engine.scene().actors()) {
            const auto first = m_first.find(actor->get_id());
            if (first == m_first.end()) continue;
            // Of several items with one name the scenario would find the first.
            const bool is_first = m_engine.scene().find_any(actor->get_name()) == actor;
            const std::wstring item = is_first ? std::wstring(actor->get_name()) : actor->get_id().to_text();
            for (const auto& [name, look] : looks_of(*actor)) {
                if (first->second.looks.at(name).compared == look.compared) continue;
                lines += "expect(host.get(" + quoted(to_utf8(item)) + ")." + name + ", " + lua_text(look.shown) + ")\n";
            }
        }
        return lines + losses_since_the_start();
    }

    // By identifier: another item may have taken the name.
    std::string losses_since_the_start() const {
        std::string lines;
        for (const auto& [id, first] : m_first) {
            if (!m_engine.scene().find_any(id))
                lines += "expect(host.get(" + quoted(to_utf8(id.to_text())) + "), nil, " + quoted(first.name) + ")\n";
        }
        return lines;
    }

    host::Engine& m_engine;
    std::string m_lines;
    Value m_ran = Value::array();
    std::map<CGuid, First> m_first;
    const CSimpleGUIShape* m_hover_before = nullptr;
};

}  // namespace

}  // namespace scenario

scenario::Recorder* sgui_make_recorder(host::Engine& engine) { return new scenario::EventRecorder(engine); }
