#pragma once

// What the commands about fonts ask of the module: which names lead to which files, how a font is looked for, and what
// stands beside a project. The bodies play the part of an editor and link the module, so they are part of the library
// that is loaded on demand; this header is all that the program itself sees of them.

#include <map>
#include <string>
#include <vector>

#include "player/stored_slots.h"

namespace fonts {

/// Paths as this system writes them, UTF-8 as all text here.
using NameMap = std::map<std::string, std::string>;

/// A name that was looked for, with its file; empty where the name is not known.
struct Try {
    std::string name;
    std::string file;
};

/// What became of a slot when its project was published.
struct PublishedSlot {
    player::StoredSlot stored;
    /// The file that the font was made from; empty where none was found.
    std::string source;
    /// Where the copy lies; empty where there is none. The same as the source where that lies beside the project.
    std::string copy;
    /// The font of another slot that was copied to the same place behind it; empty where there is none.
    std::string replaced_by;
    /// The project now names the file, which it did not before.
    bool named_anew = false;
};

}  // namespace fonts

/// Every name that the machine's fonts may be asked for by; false where the fonts can't be listed.
extern "C" bool sgui_font_names(fonts::NameMap& names);
/// The names under which a font is looked for, in order. The first that has a file decides.
extern "C" void sgui_font_tries(const player::FontWish& wish, std::vector<fonts::Try>& tries);
/// Copies the project's fonts beside it and writes into the project the names of the files that it needs there. False:
/// `error` is one line.
extern "C" bool sgui_publish(const std::string& module, const std::string& project,
                             std::vector<fonts::PublishedSlot>& slots, std::string& error);
