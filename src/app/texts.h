#pragma once

#include <QString>

// The fixed texts of the main window.
namespace quorvane::main_texts {

QString windowTitle();
// The caption of a control or menu of the main window, by its name.
QString caption(const QString& name);
QString increaseFont();
QString decreaseFont();
QString moreWordsLine();

QString instructionsTitle();
QString instructions();
QString helpTitle();
QString help();
QString troubleshootingTitle();
QString troubleshooting();
QString aboutTitle();
QString about();

} // namespace quorvane::main_texts
