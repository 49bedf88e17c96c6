#pragma once

#include "D_UIPrintStyleDialogBase.h"

// Asks which style sheet of a document kind to print or export with.
class D_UIPrintStyleDialog : public D_UIPrintStyleDialogBase {
    Q_OBJECT
public:
    explicit D_UIPrintStyleDialog(QWidget* parent = nullptr);

    // Fills the combo with the kind's style sheets ("Character", "Monster", ...), `preferred`
    // chosen when it is there.
    void Setup(const QString& kind, const QString& preferred = QString());
    // The chosen sheet's file name; empty when the folder has none.
    QString GetStyleName() const;
};
