#include "D_UIUtil.h"

#include "DCoinInfo.h"
#include "DDatabase.h"
#include "DOutput.h"
#include "DRace.h"
#include "DRaceAdvance.h"
#include "DSizeInfo.h"
#include "ResultSet.h"

#include <QComboBox>
#include <QListWidget>
#include <QTreeWidget>

#include <functional>

namespace {

// Creature class types of "[info Class]" whose hit dice a race can take.
constexpr int kClassTypeCreature = 5;
constexpr int kClassTypePlayer = 2;

QString rangeQuery(int table, int lowId, int highId, const QString& idColumn,
                   const QString& orderColumn) {
    QString sql = QStringLiteral("SELECT %1, Name FROM %2 WHERE (%1>=%3) AND (%1<=%4)")
                      .arg(idColumn, QString(DDatabase::GetTableName(table)))
                      .arg(lowId)
                      .arg(highId);
    if (!orderColumn.isEmpty())
        sql += QStringLiteral(" ORDER BY ") + orderColumn;
    return sql;
}

QString guidQuery(int table, const QString& idColumn, const QString& orderColumn) {
    QString sql = QStringLiteral("SELECT %1, Name FROM %2")
                      .arg(idColumn, QString(DDatabase::GetTableName(table)));
    if (!orderColumn.isEmpty())
        sql += QStringLiteral(" ORDER BY ") + orderColumn;
    return sql;
}

using AddEntry = std::function<void(const QString& name, const QVariant& key)>;

bool fillIds(const QString& sql, const QString& idColumn, const AddEntry& add) {
    return DDatabase::ForEachRow(sql, [&](odbc::ResultSet* row) {
        add(row->getString(QStringLiteral("Name")), row->getInt(idColumn));
    });
}

bool fillGuids(const QString& sql, const QString& idColumn, bool skipNull, const AddEntry& add) {
    return DDatabase::ForEachRow(sql, [&](odbc::ResultSet* row) {
        const QUuid guid = row->getGUID(idColumn);
        if (!skipNull || !guid.isNull())
            add(row->getString(QStringLiteral("Name")), guid);
    });
}

AddEntry toCombo(QComboBox* combo) {
    return [combo](const QString& name, const QVariant& key) { combo->addItem(name, key); };
}

} // namespace

bool D_UIUtil::FillComboWithTable(QComboBox* combo, int table, int lowId, int highId,
                                  const QString& idColumn, const QString& orderColumn) {
    combo->clear();
    return AddTableToCombo(combo, table, lowId, highId, idColumn, orderColumn);
}

bool D_UIUtil::AddTableToCombo(QComboBox* combo, int table, int lowId, int highId,
                               const QString& idColumn, const QString& orderColumn) {
    return fillIds(rangeQuery(table, lowId, highId, idColumn, orderColumn), idColumn,
                   toCombo(combo));
}

bool D_UIUtil::FillListBoxWithTable(QListWidget* list, int table, int lowId, int highId,
                                    const QString& idColumn, const QString& orderColumn) {
    list->clear();
    return fillIds(rangeQuery(table, lowId, highId, idColumn, orderColumn), idColumn,
                   [list](const QString& name, const QVariant& key) {
                       auto* item = new QListWidgetItem(name, list);
                       item->setData(Qt::UserRole, key);
                   });
}

bool D_UIUtil::FillListViewWithTable(QTreeWidget* list, int table, int lowId, int highId,
                                     const QString& idColumn) {
    list->clear();
    return fillIds(rangeQuery(table, lowId, highId, idColumn, QString()), idColumn,
                   [list](const QString& name, const QVariant& key) {
                       auto* item = new QTreeWidgetItem(list, {name});
                       item->setData(0, Qt::UserRole, key);
                   });
}

bool D_UIUtil::FillComboWithGuidTable(QComboBox* combo, int table, bool skipNull,
                                      const QString& idColumn, const QString& orderColumn) {
    combo->clear();
    return fillGuids(guidQuery(table, idColumn, orderColumn), idColumn, skipNull, toCombo(combo));
}

bool D_UIUtil::AddGuidTableToCombo(QComboBox* combo, int table, const QString& idColumn,
                                   const QString& orderColumn) {
    return fillGuids(guidQuery(table, idColumn, orderColumn), idColumn, false, toCombo(combo));
}

bool D_UIUtil::FillComboWithClasses(QComboBox* combo, int classType) {
    combo->clear();
    const QString sql = QStringLiteral("SELECT Guid, Name FROM %1 WHERE (ClassType=%2)")
                            .arg(QString(DDatabase::GetTableName(kTableClass)))
                            .arg(classType);
    return fillGuids(sql, QStringLiteral("Guid"), false, toCombo(combo));
}

bool D_UIUtil::FillComboWithDieMatching(QComboBox* combo, const QString& name) {
    combo->clear();
    const QString sql =
        QStringLiteral("SELECT Guid, Name, DieId FROM %1 WHERE (ClassType=%2) OR (ClassType=%3)")
            .arg(QString(DDatabase::GetTableName(kTableClass)))
            .arg(kClassTypeCreature)
            .arg(kClassTypePlayer);
    return DDatabase::ForEachRow(sql, [&](odbc::ResultSet* row) {
        if (row->getString("Name") == name)
            combo->addItem(QStringLiteral("d%1").arg(row->getInt("DieId")), row->getGUID("Guid"));
    });
}

void D_UIUtil::FillComboWithCoins(QComboBox* combo) {
    combo->clear();
    for (int coin = 0; coin < DCoinInfo::kCoinTypeCount; ++coin) {
        if (const DCoinInfo* info = DDatabase::GetCoinInfo(coin))
            combo->addItem(info->GetInfoName(), coin);
    }
}

void D_UIUtil::FillAdvancementList(const DRace* race, QTreeWidget* list) {
    list->clear();
    if (!race)
        return;
    for (const DRaceAdvance* advance : race->GetAdvanceArray()) {
        const DSizeInfo* size = DDatabase::GetSizeInfo(advance->GetSizeId());
        new QTreeWidgetItem(list, {QString::number(advance->GetMinHitDie()),
                                   QString::number(advance->GetMaxHitDie()),
                                   size ? QString(size->GetSizeName()) : QString()});
    }
}

int D_UIUtil::GetCurrentItemData(const QComboBox* combo) {
    const QVariant data = combo->currentData();
    return data.isValid() ? data.toInt() : -1;
}

int D_UIUtil::GetCurrentItemData(const QListWidget* list) {
    const QListWidgetItem* item = list->currentItem();
    return item ? item->data(Qt::UserRole).toInt() : -1;
}

QUuid D_UIUtil::GetCurrentItemGuid(const QComboBox* combo) {
    return combo->currentData().toUuid();
}

int D_UIUtil::GetIndexOfItemWithData(const QComboBox* combo, int data) {
    for (int i = 0; i < combo->count(); ++i) {
        const QVariant value = combo->itemData(i);
        if (value.isValid() && value.toInt() == data)
            return i;
    }
    return -1;
}

int D_UIUtil::GetIndexOfItemWithGuid(const QComboBox* combo, const QUuid& guid) {
    for (int i = 0; i < combo->count(); ++i) {
        if (combo->itemData(i).toUuid() == guid)
            return i;
    }
    return -1;
}

int D_UIUtil::GetIndexOfItemWithText(const QComboBox* combo, const QString& text) {
    return combo->findText(text, Qt::MatchExactly);
}

namespace {

int makeCurrent(QComboBox* combo, int index) {
    if (index >= 0)
        combo->setCurrentIndex(index);
    return index;
}

} // namespace

int D_UIUtil::SetCurrentItemWithData(QComboBox* combo, int data) {
    return makeCurrent(combo, GetIndexOfItemWithData(combo, data));
}

int D_UIUtil::SetCurrentItemWithGuid(QComboBox* combo, const QUuid& guid) {
    return makeCurrent(combo, GetIndexOfItemWithGuid(combo, guid));
}

int D_UIUtil::SetCurrentItemWithText(QComboBox* combo, const QString& text) {
    return makeCurrent(combo, GetIndexOfItemWithText(combo, text));
}

void D_UIUtil::SetChildItemStates(QTreeWidgetItem* item, Qt::CheckState state) {
    for (int i = 0; item && i < item->childCount(); ++i) {
        QTreeWidgetItem* child = item->child(i);
        if (child->flags() & Qt::ItemIsUserCheckable)
            child->setCheckState(0, state);
        SetChildItemStates(child, state);
    }
}

void D_UIUtil::UpdateSelectionStatus(QTreeWidget* list) {
    if (!list->selectedItems().isEmpty())
        return;
    QTreeWidgetItem* item = list->currentItem() ? list->currentItem() : list->topLevelItem(0);
    if (item)
        item->setSelected(true);
}

QString D_UIUtil::StatBlockHtml(DCharacter* creature, const QString& error) {
    QString text, failure = error;
    if (creature && DOutput::BuildStatBlock(creature, text, failure))
        return QStringLiteral("<pre>%1</pre>").arg(text.toHtmlEscaped());
    return QStringLiteral("<p><i>%1</i></p>").arg(failure.toHtmlEscaped());
}

int D_UIUtil::GetObjectNameEndingNumber(const QObject* object) {
    const QString name = object ? object->objectName() : QString();
    return !name.isEmpty() && name.back().isDigit() ? name.back().digitValue() : 0;
}
