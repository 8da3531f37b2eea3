#pragma once

#include "core/prompts.h"

#include <QPointer>

class QWidget;

namespace quorvane {

// The real boxes: modal Qt message and input dialogs, each with the window that asked as its
// parent (the one the user last clicked or typed in, when none is active).
class QtPrompts : public Prompts
{
public:
    QtPrompts();
    void message(const QString& text, const QString& title = QString()) override;
    bool okCancel(const QString& text, const QString& title = QString()) override;
    bool yesNo(const QString& text, const QString& title = QString()) override;
    QString input(const QString& prompt, const QString& title = QString(),
                  const QString& defaultText = QString()) override;
};

} // namespace quorvane
