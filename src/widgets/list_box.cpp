#include "widgets/list_box.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>

namespace quorvane {

ListBox::ListBox(const QString& name, QWidget* parent) : QListWidget(parent)
{
    setObjectName(name);
    setSelectionMode(QAbstractItemView::SingleSelection);
    connect(this, &QListWidget::currentRowChanged, this, [this](int row) {
        if (!m_quiet && row >= 0)
            runClick();
    });
    connect(this, &QListWidget::itemClicked, this, [this](QListWidgetItem*) {
        // A click that did not change the row (the row was already selected) is a click too.
        if (m_rowAtPress == currentRow())
            runClick();
        m_rowAtPress = -2;
    });
    connect(this, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem*) {
        if (onDoubleClick)
            onDoubleClick();
    });
}

void ListBox::mousePressEvent(QMouseEvent* event)
{
    m_rowAtPress = currentRow();
    QListWidget::mousePressEvent(event);
}

void ListBox::focusInEvent(QFocusEvent* event)
{
    // Qt makes the first row current when the focus comes in: that is no click.
    m_quiet = true;
    QListWidget::focusInEvent(event);
    m_quiet = false;
}

void ListBox::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool ctrl = event->modifiers() & Qt::ControlModifier;
    const bool click = (enter && !ctrl) || event->key() == Qt::Key_Space;
    const bool doubleClick = (enter && ctrl) || event->key() == Qt::Key_Delete;
    QListWidgetItem* current = currentItem();
    if (!current || !(click || doubleClick)) {
        QListWidget::keyPressEvent(event);
        return;
    }
    event->accept();
    if (click || !current->isSelected()) {
        current->setSelected(true);
        runClick();
    }
    if (doubleClick && onDoubleClick)
        onDoubleClick();
}

void ListBox::runClick()
{
    if (onClick)
        onClick();
}

bool ListBox::setRowQuietly(int row)
{
    if (row < 0 || row >= count())
        return false;
    m_quiet = true;
    setCurrentRow(row);
    m_quiet = false;
    return true;
}

bool select_row(ListBox* box, int row)
{
    if (!box || !box->setRowQuietly(row))
        return false;
    box->scrollToItem(box->item(row));
    if (box->onClick)
        box->onClick();
    return true;
}

} // namespace quorvane
