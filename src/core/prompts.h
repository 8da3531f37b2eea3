#pragma once

#include <QString>

namespace quorvane {

// Every message and input box of the program goes through this interface, so that tests can
// answer boxes from a script. The real boxes are QtPrompts (gui).
class Prompts
{
public:
    virtual ~Prompts() = default;
    // An information box with an OK button.
    virtual void message(const QString& text, const QString& title = QString()) = 0;
    // OK gives true, Cancel false.
    virtual bool okCancel(const QString& text, const QString& title = QString()) = 0;
    // Yes gives true, No false.
    virtual bool yesNo(const QString& text, const QString& title = QString()) = 0;
    // A free-text input box; Cancel gives "".
    virtual QString input(const QString& prompt, const QString& title = QString(),
                          const QString& defaultText = QString()) = 0;
};

} // namespace quorvane
