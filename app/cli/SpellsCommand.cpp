#include "SpellsCommand.h"

#include "CharacterCommand.h"
#include "CharacterSpells.h"
#include "CliContext.h"
#include "CliLookup.h"

#include <QJsonArray>
#include <QJsonObject>

QString SpellsCommand::Help() const {
    return QStringLiteral(
        "Usage:\n"
        "  hoard spells [--class CLASS] [--level N] [--json]\n\n"
        "Without --class it lists the names of all spells. With it, the spells on the class's\n"
        "list as 'LEVEL NAME', by level (a wizard reads the sorcerer's list); --level N (0 to\n"
        "9) keeps one level.\n");
}

int SpellsCommand::Run(CliContext& context, QStringList args) {
    if (WantsHelp(args)) {
        CliContext::PrintLine(Help());
        return 0;
    }
    QString classText, levelText;
    if (!TakeOption(args, "--class", classText) || !TakeOption(args, "--level", levelText))
        return CliContext::Fail(QStringLiteral("--class and --level need a value"));
    QString error;
    if (!RejectUnknownOptions(args, error))
        return CliContext::Fail(error);
    if (!args.isEmpty())
        return CliContext::Fail(QStringLiteral("unexpected argument '%1'").arg(args.first()));
    bool ok = true;
    const int level = levelText.isEmpty() ? -1 : levelText.toInt(&ok);
    if (!ok || level < -1 || level > 9)
        return CliContext::Fail(QStringLiteral("--level must be a number from 0 to 9"));
    if (!context.StartLibrary())
        return 1;
    if (classText.isEmpty()) {
        const QStringList names = CharacterSpells::SpellNames();
        if (context.WantsJson())
            CliContext::PrintJson(QJsonArray::fromStringList(names));
        else
            for (const QString& name : names)
                CliContext::PrintLine(name);
        return 0;
    }
    const QUuid classGuid = CharacterCommand::FindClass(classText);
    if (classGuid.isNull())
        return CliContext::Fail(QStringLiteral("unknown class '%1'").arg(classText));
    QJsonArray rows;
    for (const CharacterSpells::Spell& spell : CharacterSpells::ClassSpells(classGuid, level)) {
        if (context.WantsJson())
            rows.append(QJsonObject{{"name", spell.name}, {"level", spell.level}});
        else
            CliContext::PrintLine(QStringLiteral("%1 %2").arg(spell.level).arg(spell.name));
    }
    if (context.WantsJson())
        CliContext::PrintJson(rows);
    return 0;
}
