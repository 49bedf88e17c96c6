#pragma once

class DCursedData;
class DIntelligentData;
class DItem;
class QTreeWidget;
class QTreeWidgetItem;

// The rows that show an item in a list: its description and cost, its sub-items, and under a
// magic item the stats of its mind and its curse.
class D_UIItemRows {
public:
    D_UIItemRows() = delete;

    // A top-level row of `list` with the item's description and cost and every child row.
    static QTreeWidgetItem* AddItemRow(QTreeWidget* list, const DItem& item);
    // One child row per sub-item (special ability, spell, target).
    static void AddSubItems(QTreeWidgetItem* parent, const DItem& item);
    // The mind and the curse of a magic item; nothing for other items.
    static void AddMagicSubItems(QTreeWidgetItem* parent, const DItem& item);
    // "Intelligent Stats" with a row per trait under it; `ego` is the item's.
    static QTreeWidgetItem* AddIntelligentSubItem(QTreeWidgetItem* parent,
                                                  const DIntelligentData& data, int ego);
    // "Cursed: kind" with its detail under it.
    static QTreeWidgetItem* AddCursedSubItem(QTreeWidgetItem* parent, const DCursedData& data);
    // The detail of a curse as a child row; null, and no row, when it has none.
    static QTreeWidgetItem* AddSubItemForDescription(QTreeWidgetItem* parent,
                                                     const DCursedData& data);
};
