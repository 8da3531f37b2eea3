#pragma once

#include <QString>

namespace quorvane {

class Session;

// Makes a new language after asking its name and its target language (the language its students
// already know): the language's folder and its trans file naming the target. Where the target's
// folder exists, every word file of the target becomes a list of the new language holding each
// entry's word and sound number with the translation still to be typed, and the trans index
// pairs each of those sound numbers with itself; where it does not, the target's folder is made
// with a trans file naming the new language. It is all built in a folder of its own beside the
// languages folder and moved into place whole at the end, so a kill never leaves half a language
// listed. Names are lower-cased and not checked beyond emptiness, but a name the file system refuses gives false with
// error saying so, and nothing is left behind. True when the language was made whole (the caller lists the languages
// again); an empty name, or an empty target (which leaves the new folder without a trans file, kept so), gives false
// with error left alone. Whether the target exists is said in a message box on the way.
bool new_language(Session& session, QString* error);

// At start: a new language whose build was complete when its copy of the program was killed is
// moved into place; one that was not is removed (the name is free again). Builds of a copy still
// running are left to it.
void sweep_new_languages(const QString& languagesFolder);

// Makes an empty word list in the current language after asking its name (blanks become "_"):
// one header line, then a message with the name. True when the list was made (the caller
// chooses the language again, which lists it); false when the name box is left empty, or with
// error saying why the list was not made.
bool add_list(Session& session, QString* error);

} // namespace quorvane
