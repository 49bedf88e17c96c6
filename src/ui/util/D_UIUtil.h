#pragma once

#include <QString>
#include <QUuid>

class DCharacter;
class DRace;
class QComboBox;
class QListWidget;
class QObject;
class QTreeWidget;
class QTreeWidgetItem;

// Filling the editors' and generators' combos and lists from rule tables, and reading back
// what the user picked. An entry carries its row's key as item data (Qt::UserRole): an int id
// or a QUuid, so a combo's value is its current item's data, not its index.
class D_UIUtil {
public:
    D_UIUtil() = delete;

    // The rows of `table` (an index of DDatabase::GetTableName) whose `idColumn` lies in
    // [lowId, highId], by `orderColumn` when given. The Fill forms clear first, the Add forms
    // append. A failed query is reported once and leaves the widget as it was filled so far.
    static bool FillComboWithTable(QComboBox* combo, int table, int lowId, int highId,
                                   const QString& idColumn = QStringLiteral("Id"),
                                   const QString& orderColumn = QString());
    static bool AddTableToCombo(QComboBox* combo, int table, int lowId, int highId,
                                const QString& idColumn = QStringLiteral("Id"),
                                const QString& orderColumn = QString());
    static bool FillListBoxWithTable(QListWidget* list, int table, int lowId, int highId,
                                     const QString& idColumn = QStringLiteral("Id"),
                                     const QString& orderColumn = QString());
    static bool FillListViewWithTable(QTreeWidget* list, int table, int lowId, int highId,
                                      const QString& idColumn = QStringLiteral("Id"));
    // Every row of a table keyed by a GUID column; `skipNull` leaves out the null GUID's row.
    static bool FillComboWithGuidTable(QComboBox* combo, int table, bool skipNull,
                                       const QString& idColumn = QStringLiteral("Guid"),
                                       const QString& orderColumn = QString());
    static bool AddGuidTableToCombo(QComboBox* combo, int table,
                                    const QString& idColumn = QStringLiteral("Guid"),
                                    const QString& orderColumn = QString());

    // The classes of one creature class type ("[info Class]" ClassType).
    static bool FillComboWithClasses(QComboBox* combo, int classType);
    // The hit dice ("d8") of the creature types and player classes named `name`: a type that
    // exists with several dice offers each.
    static bool FillComboWithDieMatching(QComboBox* combo, const QString& name);
    // The four coins, by their coin type.
    static void FillComboWithCoins(QComboBox* combo);
    // The race's advancement rows: minimum and maximum hit dice and the size's name.
    static void FillAdvancementList(const DRace* race, QTreeWidget* list);

    static int GetCurrentItemData(const QComboBox* combo);
    static int GetCurrentItemData(const QListWidget* list);
    static QUuid GetCurrentItemGuid(const QComboBox* combo);
    static int GetIndexOfItemWithData(const QComboBox* combo, int data);
    static int GetIndexOfItemWithGuid(const QComboBox* combo, const QUuid& guid);
    static int GetIndexOfItemWithText(const QComboBox* combo, const QString& text);
    // Make the matching item current and give its index; -1 and the selection unchanged when
    // none matches.
    static int SetCurrentItemWithData(QComboBox* combo, int data);
    static int SetCurrentItemWithGuid(QComboBox* combo, const QUuid& guid);
    static int SetCurrentItemWithText(QComboBox* combo, const QString& text);

    // The check state of every checkable item below `item`, to any depth.
    static void SetChildItemStates(QTreeWidgetItem* item, Qt::CheckState state);
    // With nothing selected, selects the current item or else the first one.
    static void UpdateSelectionStatus(QTreeWidget* list);
    // A creature's text stat block as preformatted HTML; without a creature, or when the block
    // cannot be made, the reason in italics (`error` first, then the stat block's own).
    static QString StatBlockHtml(DCharacter* creature, const QString& error);

    // The last character of the object's name as a number ("mRolled5" is 5); 0 if no digit.
    static int GetObjectNameEndingNumber(const QObject* object);
};
