#pragma once

#include <QTableWidget>

#include "model/CVEKA_Manager.h"

namespace host {

/// Shows the pins of a part as a table.
class PinView : public QTableWidget {
public:
    PinView();
    void ShowPart(const CVEKA_Manager& part);
    /// Selects the next cell that contains a text in any case. After the last one comes the first one. False
    /// if there is none.
    bool FindNext(const QString& text, bool backward);
    /// The name of the pin of the current row; empty where there is none.
    CString CurrentPin() const;
    /// Selects the first row of a pin.
    void SelectPin(const CString& name);
};

}  // namespace host
