#include "CharacterGodRows.h"

#include "DCharacter.h"
#include "DChosenLanguage.h"
#include "DDatabase.h"
#include "DHandBook.h"
#include "DRulesQuery.h"
#include "DSchoolInfo.h"
#include "ResultSet.h"

#include <QCoreApplication>
#include <QStringList>

namespace {

QString tr(const char* text) {
    return QCoreApplication::translate("CharacterGodRows", text);
}

QString row(const QString& caption, const QString& value) {
    return QStringLiteral("<tr><td><b>%1</b></td><td>%2</td></tr>").arg(caption, value);
}

// The Name (and, when asked, a second column) of the row with that Guid.
QString nameOf(int table, const QUuid& guid, const char* extra = nullptr) {
    QString text = guid.toString();
    const QString columns =
        extra ? QStringLiteral("Name, %1").arg(QLatin1String(extra)) : QStringLiteral("Name");
    DDatabase::FirstRow(QStringLiteral("SELECT %1 FROM %2 WHERE (Guid=%3)")
                            .arg(columns, QString::fromLatin1(DRulesQuery::Table(table)),
                                 QString::fromLatin1(DRulesQuery::Guid(guid))),
                        [&text, extra](odbc::ResultSet* result) {
                            text = result->getString(1);
                            if (extra && !result->getString(2).isEmpty())
                                text += QStringLiteral(" (%1)").arg(result->getString(2));
                        });
    return text;
}

QString schoolName(int id) {
    const DSchoolInfo* school = DDatabase::GetSchoolInfo(id);
    return school ? QString(school->GetSchoolName()) : QString::number(id);
}

QString proficiencies(const DCharacter& character) {
    const std::pair<unsigned, const char*> kinds[] = {
        {DCharacter::kProfSimple, "simple weapons"},
        {DCharacter::kProfMartial, "martial weapons"},
        {DCharacter::kProfLightArmor, "light armor"},
        {DCharacter::kProfMediumArmor, "medium armor"},
        {DCharacter::kProfHeavyArmor, "heavy armor"},
        {DCharacter::kProfShield, "shields"}};
    QStringList parts;
    for (const auto& [flag, name] : kinds) {
        if (character.HasProfFlag(flag))
            parts << tr(name);
    }
    return parts.isEmpty() ? tr("none") : parts.join(QStringLiteral(", "));
}

} // namespace

QString CharacterGodRows::Build(const DCharacter& character) {
    QString rows;
    if (character.HasPickedGod())
        rows += row(tr("God"), nameOf(kTableGod, character.GetGod()).toHtmlEscaped());
    QStringList domains;
    for (int i = 0; i < 2; ++i) {
        if (!character.GetDomain(i).isNull())
            domains
                << nameOf(kTableDomain, character.GetDomain(i), "DomainAbility").toHtmlEscaped();
    }
    if (!domains.isEmpty())
        rows += row(tr("Domains"), domains.join(QStringLiteral("<br>")));
    if (character.HasPickedSchool()) {
        QStringList prohibited;
        for (const int school : const_cast<DCharacter&>(character).GetProhibitedSchoolArray())
            prohibited << schoolName(school);
        rows +=
            row(tr("School"), tr("%1; prohibited: %2")
                                  .arg(schoolName(character.GetSchool()),
                                       prohibited.isEmpty() ? tr("none") : prohibited.join(", ")));
    }
    QStringList languages;
    for (const auto& [guid, language] : character.GetLanguageMap())
        languages << nameOf(kTableLanguage, guid);
    languages.sort();
    rows += row(tr("Languages"), tr("%1 (%2 bonus left)")
                                     .arg(languages.join(QStringLiteral(", ")).toHtmlEscaped())
                                     .arg(DHandBook::GetRemainingLanguagePoints(&character)));
    rows += row(tr("Proficient with"), proficiencies(character));
    return rows;
}
