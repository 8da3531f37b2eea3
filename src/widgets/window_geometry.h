#pragma once

#include <QRect>
#include <QString>

class QWidget;

namespace quorvane {

// Turns on remembering where the windows were, in the settings file settingsFile (empty: off).
// Off until the program asks for it, so tests and screenshots see the windows' own sizes.
void rememberWindowGeometry(const QString& settingsFile);

// Puts window where it was last time (by its objectName), fitted onto the screen, and remembers
// where it is each time it is hidden or closed. Does nothing while remembering is off.
void keepWindowGeometry(QWidget* window);

// saved moved and, if it must, shrunk so that it lies wholly inside available.
QRect fitOnScreen(const QRect& saved, const QRect& available);

} // namespace quorvane
