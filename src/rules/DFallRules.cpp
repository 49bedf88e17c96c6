#include "DFallRules.h"

#include "DCharacter.h"
#include "DCharacterClass.h"
#include "DRuleGuids.h"

bool DFallRules::CanFall(const QUuid& classGuid) {
    return classGuid == DRuleGuids::kPaladinClass || classGuid == DRuleGuids::kDevoutClass ||
           classGuid == DRuleGuids::kFastMovementClass;
}

QList<QUuid> DFallRules::ClassesToChange(const DCharacter& character, bool fallen) {
    QList<QUuid> classes;
    for (const DCharacterClass* characterClass : character.GetClassList()) {
        if (CanFall(characterClass->GetClassGuid()) && characterClass->GetIsExClass() != fallen)
            classes << characterClass->GetClassGuid();
    }
    return classes;
}
