#include "CharacterCompanionRows.h"

#include "DCharHistory.h"
#include "DCharStatType.h"
#include "DCharacter.h"
#include "DChosenAnimal.h"
#include "DChosenFeature.h"
#include "DCompanionRules.h"
#include "DFileObject.h"
#include "DHandBook.h"
#include "DRulesTypes.h"

#include <QCoreApplication>
#include <QStringList>

namespace {

QString tr(const char* text) {
    return QCoreApplication::translate("CharacterCompanionRows", text);
}

QString signedNumber(int value) {
    return QString::asprintf("%+d", value);
}

QString abilities(const DCharacter& creature) {
    static constexpr const char* kNames[] = {"Str", "Dex", "Con", "Int", "Wis", "Cha"};
    QStringList scores;
    for (int ability = 0; ability < 6; ++ability) {
        const auto stat = DAbilityStatType(ability);
        scores << QStringLiteral("%1 %2").arg(QLatin1String(kNames[ability]),
                                              creature.IsNullAbility(stat)
                                                  ? QStringLiteral("-")
                                                  : QString::number(creature.GetAbilityStat(stat)));
    }
    return scores.join(QStringLiteral(", "));
}

QString combatLine(DCharacter& creature) {
    DACValues ac;
    DHandBook::GetArmorClassValues(&creature, ac);
    const DCharHistory* raceEntry = creature.GetHistoryAtPosition(0);
    QStringList features;
    for (int array = 0; array < DCharacter::kFeatureArrayCount; ++array) {
        for (const DChosenFeature* feature : creature.GetFeatureArray(array))
            features << DHandBook::BuildFeatureName(feature);
    }
    return tr("%1 HD, %2 hp; AC %3 (natural armor %4); base attack %5, grapple %6; "
              "Fort %7, Ref %8, Will %9; %10%11")
        .arg(raceEntry ? double(raceEntry->GetLevel()) : 0.0)
        .arg(creature.GetCharacterStat(kStatHitPoints))
        .arg(ac.Total())
        .arg(signedNumber(creature.GetCharacterStat(kStatNaturalArmor)),
             signedNumber(creature.GetCharacterStat(kStatBaseAttack)),
             signedNumber(DHandBook::ComputeGrapple(&creature)),
             signedNumber(creature.GetCharacterStat(kStatFortitude)),
             signedNumber(creature.GetCharacterStat(kStatReflex)),
             signedNumber(creature.GetCharacterStat(kStatWill)), abilities(creature),
             features.isEmpty() ? QString() : QStringLiteral("; ") + features.join(", "));
}

} // namespace

QString CharacterCompanionRows::Build(const DCharacter& character) {
    QString rows;
    for (int type = 0; type < DCharacter::kAnimalCount; ++type) {
        const DChosenAnimal* animal = character.GetAnimal(type);
        if (!animal)
            continue;
        const DAnimalType kind = animal->GetAnimalType();
        QString caption = DCompanionRules::GetTypeName(kind);
        if (!caption.isEmpty())
            caption[0] = caption[0].toUpper();
        QString text = QStringLiteral("%1 (master level %2): ")
                           .arg(QString(animal->GetFileObject()->GetBaseFileName()))
                           .arg(DCompanionRules::GetMasterClassLevel(&character, kind));
        DCharacter* creature = DCompanionRules::GetAnimal(animal);
        text += creature ? combatLine(*creature) : tr("its race cannot be read");
        rows += QStringLiteral("<tr><td><b>%1</b></td><td>%2</td></tr>")
                    .arg(caption.toHtmlEscaped(), text.toHtmlEscaped());
    }
    return rows;
}
