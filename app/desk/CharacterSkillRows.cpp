#include "CharacterSkillRows.h"

#include "DCharacter.h"
#include "DChosenFeat.h"
#include "DChosenSkill.h"
#include "DRuleNames.h"

#include <QCoreApplication>
#include <QStringList>

#include <cmath>

namespace {

QString tr(const char* text) {
    return QCoreApplication::translate("CharacterSkillRows", text);
}

QString row(const QString& caption, QStringList values) {
    values.sort(Qt::CaseInsensitive);
    return QStringLiteral("<tr><td><b>%1</b></td><td>%2</td></tr>")
        .arg(caption, values.isEmpty() ? tr("none") : values.join(QStringLiteral(", ")));
}

} // namespace

QString CharacterSkillRows::Build(const DCharacter& character) {
    DRuleNames names;
    QStringList feats;
    for (const auto& feat : character.GetFeatSet())
        feats << names.FeatDescription(*feat).toHtmlEscaped();
    // Skills with nothing but their ability behind them would list every untrained skill.
    QStringList skills;
    for (const auto& skill : character.GetSkillSet()) {
        if (skill->GetTotalRanks() <= 0.0f && skill->GetTotalMods() == skill->GetAbilityMod())
            continue;
        // Half ranks count for nothing in a check.
        const int total = int(std::floor(skill->GetTotalBonus()));
        skills << QStringLiteral("%1 %2").arg(names.SkillDescription(*skill).toHtmlEscaped(),
                                              QString::asprintf("%+d", total));
    }
    return row(tr("Feats"), feats) + row(tr("Skills"), skills);
}
