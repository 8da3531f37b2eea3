#include "widgets/list_box.h"

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
