#pragma once

#include <QDockWidget>

class DFileObject;
class QTreeWidget;
class QTreeWidgetItem;

// Lists the object catalogues (ready and user races, characters, monsters, treasures, tables)
// so a user sees what is there and can open an entry.
class CatalogueDock : public QDockWidget {
    Q_OBJECT
public:
    explicit CatalogueDock(QWidget* parent = nullptr);

    // Reads the catalogues again, e.g. after a save.
    void Refresh();
    int GetEntryCount() const;

signals:
    void EntryActivated(DFileObject* entry);

private:
    void OnItemActivated(QTreeWidgetItem* item);

    QTreeWidget* mTree = nullptr;
};
