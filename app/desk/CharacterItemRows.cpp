#include "CharacterItemRows.h"

#include "DAdjChosenSpeed.h"
#include "DCharStatType.h"
#include "DCharacter.h"
#include "DChosenItem.h"
#include "DCursedData.h"
#include "DHandBook.h"
#include "DIntelligentData.h"
#include "DIntelligentItemGenerator.h"
#include "DMagicItemInfo.h"
#include "DWielding.h"

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>

namespace {

QString tr(const char* text) {
    return QCoreApplication::translate("CharacterItemRows", text);
}

QString row(const QString& caption, const QString& value) {
    return QStringLiteral("<tr><td><b>%1</b></td><td>%2</td></tr>").arg(caption, value);
}

QString equipmentText(const DCharacter& character) {
    QStringList worn, carried;
    for (const auto& [id, item] : character.GetItemMap()) {
        if (item->HasItemFlag(DItem::kItemFlagUnarmed))
            continue;
        const QString name = item->GetItemPrintDescription(true).toHtmlEscaped();
        if (item->GetItemLocation() != DChosenItem::kLocationNone ||
            DWielding::IsWielded(character, id))
            worn << QStringLiteral("<b>%1</b>").arg(name);
        else
            carried << name;
    }
    const QStringList all = worn + carried;
    return all.isEmpty() ? tr("none") : all.join(QStringLiteral(", "));
}

// A row per item with a mind or a curse: the mind's print text, then the curse.
QString mindAndCurseRows(const DCharacter& character) {
    const QString br = QStringLiteral("<br>");
    QString rows;
    for (const auto& [id, item] : character.GetItemMap()) {
        const auto* magic = FCDynamicCast<DMagicItemInfo>(item->GetItemInfo());
        if (!magic || !item->GetIsMagicItem())
            continue;
        QStringList lines;
        if (const auto* mind = FCDynamicCast<DIntelligentData>(magic->GetIntelligentData())) {
            FCString text;
            mind->GetPrintCoreText(DIntelligentItemGenerator::GetItemEgo(*item), text);
            lines = text.split(br);
        }
        if (const auto* curse = FCDynamicCast<DCursedData>(magic->GetCursedData()))
            lines << curse->GetDescription(true, true);
        if (lines.isEmpty())
            continue;
        for (QString& line : lines)
            line = line.toHtmlEscaped();
        rows += row(item->GetItemPrintDescription(true).toHtmlEscaped(), lines.join(br));
    }
    return rows;
}

QString loadText(const DCharacter& character) {
    static const char* const kLoads[] = {QT_TRANSLATE_NOOP("CharacterItemRows", "light"),
                                         QT_TRANSLATE_NOOP("CharacterItemRows", "medium"),
                                         QT_TRANSLATE_NOOP("CharacterItemRows", "heavy"),
                                         QT_TRANSLATE_NOOP("CharacterItemRows", "overloaded")};
    auto& engine = const_cast<DCharacter&>(character);
    const int load = std::clamp(character.GetCharacterStat(kStatLoadType), 0, 3);
    const auto* speed = FCDynamicCast<DAdjChosenSpeed>(character.GetBaseSpeedPointer());
    return tr("%1 load (%2 lb.), speed %3 ft., armor check %4, arcane spell failure %5%")
        .arg(tr(kLoads[load]))
        .arg(double(character.GetCarriedWeight()))
        .arg(speed ? speed->GetAdjSpeedValue() : 0)
        .arg(character.GetCharacterStat(kStatArmorCheckPenalty))
        .arg(DHandBook::GetArcaneSpellFailure(&engine));
}

} // namespace

QString CharacterItemRows::Build(const DCharacter& character) {
    auto& engine = const_cast<DCharacter&>(character);
    QStringList attacks;
    for (const DOffenseLine& line : DHandBook::BuildOffenseLines(&engine))
        attacks << line.Text().toHtmlEscaped();
    return row(tr("Money"), character.GetCurrency().GetCostDescription().toHtmlEscaped()) +
           row(tr("Equipment"), equipmentText(character)) + mindAndCurseRows(character) +
           row(tr("Load"), loadText(character)) +
           row(tr("Attacks"),
               attacks.isEmpty() ? tr("none") : attacks.join(QStringLiteral("<br>")));
}
