#pragma once

#include "FCReleaser.h"

#include <QTreeWidgetItem>

class DFileObject;

// A row of a monster list: the race's name, its type and its hit dice, with the race's file
// kept (a group row keeps none). The hit dice column sorts as numbers.
class D_UIMonsterRaceItem : public QTreeWidgetItem {
public:
    enum Column { kColumnName = 0, kColumnType = 1, kColumnHitDice = 2 };

    explicit D_UIMonsterRaceItem(QTreeWidget* parent, const QString& name);
    D_UIMonsterRaceItem(QTreeWidgetItem* parent, const QString& name);

    // Retains the file.
    void SetFileObject(DFileObject* file);
    DFileObject* GetFileObject() const { return mFile.get(); }

    bool operator<(const QTreeWidgetItem& other) const override;

private:
    FCRef<DFileObject> mFile;
};
