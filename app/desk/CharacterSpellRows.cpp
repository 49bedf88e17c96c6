#include "CharacterSpellRows.h"

#include "DCharacter.h"
#include "DCharacterClass.h"
#include "DChosenSpell.h"
#include "DClassInfo.h"
#include "DDatabase.h"
#include "DHandBook.h"
#include "DRulesQuery.h"
#include "ResultSet.h"

#include <QCoreApplication>
#include <QStringList>

namespace {

QString tr(const char* text) {
    return QCoreApplication::translate("CharacterSpellRows", text);
}

QString row(const QString& caption, const QString& value) {
    return QStringLiteral("<tr><td><b>%1</b></td><td>%2</td></tr>").arg(caption, value);
}

QString spellName(const QUuid& spell) {
    QString name = spell.toString();
    DDatabase::FirstRow(QString::asprintf("SELECT Name FROM %s WHERE (Guid=%s)",
                                          DRulesQuery::Table(kTableSpell).constData(),
                                          DRulesQuery::Guid(spell).constData()),
                        [&name](odbc::ResultSet* result) { name = result->getString(1); });
    return name;
}

// "Sleep (1), Sleep (1) x2" for the records of `set` that belong to `caster`.
QString spellList(const FCPointerSet<DChosenSpell>& set, const DSpellCaster& caster,
                  bool withCount) {
    QStringList parts;
    for (const auto& spell : set) {
        if (spell->GetCasterClassGuid() != caster.GetClassGuid())
            continue;
        QString text = QStringLiteral("%1 (%2)")
                           .arg(spellName(spell->GetSpellGuid()))
                           .arg(spell->GetSpellLevel());
        if (withCount && spell->GetPreparedCount() > 1)
            text += QStringLiteral(" x%1").arg(spell->GetPreparedCount());
        parts << text;
    }
    return parts.isEmpty() ? tr("none") : parts.join(QStringLiteral(", ")).toHtmlEscaped();
}

QString casterRows(DCharacter& character, const DSpellCaster& caster) {
    const DClassInfo* info = DDatabase::GetClassInfoA(caster.GetClassGuid());
    QStringList perDay, canKnow;
    for (int level = 0; level < DSpellCaster::kSpellLevelCount; ++level) {
        perDay << (caster.GetSpellsPerDay(level) < 0
                       ? QStringLiteral("-")
                       : DHandBook::BuildSpellsPerDayString(&caster, level));
        canKnow << DHandBook::BuildSpellsCanKnowString(&caster, level);
    }
    QString rows = row(tr("Spells"), tr("%1, caster level %2")
                                         .arg(info ? QString(info->mName) : QString())
                                         .arg(DHandBook::GetSpellCasterLevel(&caster)));
    rows += row(tr("Per day (0-9)"), perDay.join(QStringLiteral(" ")));
    if (caster.HasCasterFlag(DSpellCaster::kCasterKnowsList))
        rows += row(tr("Can know (0-9)"), canKnow.join(QStringLiteral(" ")));
    rows += row(tr("Known"), spellList(character.GetKnownSpellSet(), caster, false));
    if (caster.HasCasterFlag(DSpellCaster::kCasterPrepares))
        rows += row(tr("Prepared"), spellList(character.GetPreparedSpellSet(), caster, true));
    return rows;
}

} // namespace

QString CharacterSpellRows::Build(const DCharacter& character) {
    // The spell sets are reached through non-const accessors only; nothing is changed here.
    auto& readable = const_cast<DCharacter&>(character);
    QString rows;
    for (const DCharacterClass* characterClass : character.GetClassList()) {
        if (characterClass->HasCasterFlag(DSpellCaster::kCasterCasts))
            rows += casterRows(readable, *characterClass);
    }
    for (const DSpellCaster* caster : readable.GetRaceSpellCasterArray()) {
        if (caster->HasCasterFlag(DSpellCaster::kCasterCasts))
            rows += casterRows(readable, *caster);
    }
    return rows;
}
