#pragma once

#include <QListWidget>

#include <functional>

namespace quorvane {

// A list box whose click handler runs once for every selection: by mouse, by keyboard, by a
// click on the row already selected, and at once when a row is selected from code (select_row).
// Double-clicks run onDoubleClick after the click of their first press. Focus entering the box
// runs nothing. Keys: Enter or Space clicks the current row again; Delete or Ctrl+Enter
// double-clicks it (a row not yet clicked gets its click first).
class ListBox : public QListWidget
{
    Q_OBJECT
public:
    explicit ListBox(const QString& name, QWidget* parent = nullptr);

    std::function<void()> onClick;
    std::function<void()> onDoubleClick;

    // Selects row without running the handler; false when the row does not exist.
    bool setRowQuietly(int row);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void runClick();
    int m_rowAtPress = -2;
    bool m_quiet = false;
};

// Selects a row from code and runs the box's click handler at once (also when the row was
// already selected). A row that does not exist selects nothing and runs nothing: false.
bool select_row(ListBox* box, int row);

} // namespace quorvane
