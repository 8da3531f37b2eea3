#pragma once

#include "core/prompts.h"

#include <QPointer>

class QWidget;

namespace quorvane {

// The real boxes: modal Qt message and input dialogs.
class QtPrompts : public Prompts
{
public:
    void message(const QString& text, const QString& title = QString()) override;
    bool okCancel(const QString& text, const QString& title = QString()) override;
    bool yesNo(const QString& text, const QString& title = QString()) override;
    QString input(const QString& prompt, const QString& title = QString(),
                  const QString& defaultText = QString()) override;
};

} // namespace quorvane
