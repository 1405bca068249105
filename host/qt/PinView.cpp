#include "host/qt/PinView.h"

#include <QHeaderView>

#include "host/PinTable.h"
#include "platform/Printable.h"
#include "qt/Text.h"

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
            setItem(row, column, new QTableWidgetItem(veka::ToQString(CString(veka::Printable(text)))));
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

}  // namespace host
