#include "D_UIItemRows.h"

#include "DCursedData.h"
#include "DIntelligentData.h"
#include "DIntelligentItemGenerator.h"
#include "DItem.h"
#include "DMagicItemInfo.h"

#include <QTreeWidget>

namespace {

QTreeWidgetItem* AddRow(QTreeWidgetItem* parent, const QString& text) {
    auto* row = new QTreeWidgetItem(parent);
    row->setText(0, text);
    return row;
}

// "Caption: text", or the caption alone when there is nothing to name.
QString Labelled(const QString& caption, const QString& text) {
    return text.isEmpty() ? caption : caption + QLatin1Char(' ') + text;
}

} // namespace

QTreeWidgetItem* D_UIItemRows::AddItemRow(QTreeWidget* list, const DItem& item) {
    auto* row = new QTreeWidgetItem(list);
    row->setText(0, item.GetItemDescription());
    row->setText(1, item.GetCostDescription());
    AddSubItems(row, item);
    AddMagicSubItems(row, item);
    return row;
}

void D_UIItemRows::AddSubItems(QTreeWidgetItem* parent, const DItem& item) {
    const int count = item.GetSubItemCount();
    for (int index = 0; index < count; ++index)
        AddRow(parent, item.GetSubItemDescription(index));
    if (count > 0)
        parent->setExpanded(true);
}

void D_UIItemRows::AddMagicSubItems(QTreeWidgetItem* parent, const DItem& item) {
    const auto* magic = FCDynamicCast<DMagicItemInfo>(item.GetItemInfo());
    if (!magic || !item.GetIsMagicItem())
        return;
    if (const auto* mind = FCDynamicCast<DIntelligentData>(magic->GetIntelligentData())) {
        AddIntelligentSubItem(parent, *mind, DIntelligentItemGenerator::GetItemEgo(item));
        parent->setExpanded(true);
    }
    if (const auto* curse = FCDynamicCast<DCursedData>(magic->GetCursedData())) {
        AddCursedSubItem(parent, *curse);
        parent->setExpanded(true);
    }
}

QTreeWidgetItem* D_UIItemRows::AddIntelligentSubItem(QTreeWidgetItem* parent,
                                                     const DIntelligentData& data, int ego) {
    const QString separator = QStringLiteral(", ");
    QTreeWidgetItem* stats = AddRow(parent, QStringLiteral("Intelligent Stats"));
    AddRow(stats, Labelled(QStringLiteral("Alignment:"), data.GetAlignmentName()));
    AddRow(stats, QStringLiteral("Ability Scores: ") + data.GetDescription());
    AddRow(stats, QStringLiteral("Ego: %1").arg(ego));
    AddRow(stats, Labelled(QStringLiteral("Communication:"),
                           data.GetCommunicationNames().join(separator)));
    AddRow(stats, Labelled(QStringLiteral("Languages:"), data.GetLanguageNames().join(separator)));
    if (data.GetCanReadLanguages())
        AddRow(stats, QStringLiteral("Read Languages"));
    if (data.GetCanReadMagic())
        AddRow(stats, QStringLiteral("Read Magic"));
    for (const QString& ability : data.GetAbilityNames())
        AddRow(stats, Labelled(QStringLiteral("Primary Ability:"), ability));
    for (const QString& power : data.GetPowerDescriptions())
        AddRow(stats, Labelled(QStringLiteral("Extraordinary Power:"), power));
    const QString purpose = data.GetPurposeName();
    if (!purpose.isEmpty())
        AddRow(stats, Labelled(QStringLiteral("Special Purpose:"), purpose));
    for (const QString& power : data.GetPurposePowerNames())
        AddRow(stats, Labelled(QStringLiteral("Special Purpose Power:"), power));
    stats->setExpanded(true);
    return stats;
}

QTreeWidgetItem* D_UIItemRows::AddCursedSubItem(QTreeWidgetItem* parent, const DCursedData& data) {
    QTreeWidgetItem* curse = AddRow(parent, data.GetDescription(true, false));
    if (AddSubItemForDescription(curse, data))
        curse->setExpanded(true);
    return curse;
}

QTreeWidgetItem* D_UIItemRows::AddSubItemForDescription(QTreeWidgetItem* parent,
                                                        const DCursedData& data) {
    if (data.GetCurseDescription().isEmpty())
        return nullptr;
    return AddRow(parent, data.GetCurseDescription());
}
