#include "DWielding.h"

#include "DCharacter.h"
#include "DOffenseGroup.h"
#include "DOffenseItem.h"

namespace DWielding {

bool IsWielded(const DCharacter& character, qint32 itemId) {
    for (const DOffenseGroup* group : character.GetOffenseGroupArray()) {
        if (group->HasOffenseItem(itemId, DOffenseItem::kOffenseWeapon))
            return true;
    }
    return false;
}

} // namespace DWielding
