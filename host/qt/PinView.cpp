#include "host/qt/PinView.h"

#include <QHeaderView>

#include "host/PinTable.h"
#include "host/qt/Elided.h"
#include "platform/Printable.h"

namespace host {

PinView::PinView() {
    setObjectName("pins");
    setColumnCount(static_cast<int>(kPinColumns.size()));
    QStringList names;
    for (const char* name : kPinColumns) names += name;
    setHorizontalHeaderLabels(names);
    horizontalHeader()->setStretchLastSection(true);
    verticalHeader()->hide();
    setAlternatingRowColors(true);
    setEditTriggers(NoEditTriggers);
    setSelectionBehavior(SelectRows);
}

void PinView::ShowPart(const CVEKA_Manager& part) {
    const std::vector<PinRow> rows = PinTable(part);
    clearContents();
    setRowCount(static_cast<int>(rows.size()));
    for (int row = 0; row < rowCount(); ++row)
        for (int column = 0; column < columnCount(); ++column) {
            const std::string& text = rows[static_cast<size_t>(row)][static_cast<size_t>(column)];
            auto* cell = new QTableWidgetItem(Elided(CString(veka::Printable(text))));
            if (column == 0) cell->setData(Qt::UserRole, QByteArray::fromStdString(text));
            setItem(row, column, cell);
        }
}

bool PinView::FindNext(const QString& text, bool backward) {
    const int cells = rowCount() * columnCount();
    if (text.isEmpty()) return false;
    int cell = currentRow() < 0 ? (backward ? 0 : cells - 1) : currentRow() * columnCount() + currentColumn();
    for (int i = 0; i < cells; ++i) {
        cell = (cell + (backward ? cells - 1 : 1)) % cells;
        QTableWidgetItem* found = item(cell / columnCount(), cell % columnCount());
        if (!found->text().contains(text, Qt::CaseInsensitive)) continue;
        setCurrentItem(found);
        return true;
    }
    return false;
}

CString PinView::CurrentPin() const {
    const QTableWidgetItem* cell = currentRow() < 0 ? nullptr : item(currentRow(), 0);
    return cell ? CString(cell->data(Qt::UserRole).toByteArray().toStdString()) : CString();
}

void PinView::SelectPin(const CString& name) {
    const QByteArray bytes(name.GetString(), name.GetLength());
    for (int row = 0; row < rowCount(); ++row)
        if (!bytes.isEmpty() && item(row, 0)->data(Qt::UserRole).toByteArray() == bytes) {
            setCurrentCell(row, 0);
            scrollToItem(item(row, 0));
            return;
        }
}

}  // namespace host
