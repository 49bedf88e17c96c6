#pragma once

#include <QtGlobal>

class DCharacter;

// What a character holds in hand. A weapon in hand has no place on the body: it is equipped by
// standing in one of the character's offense groups.
namespace DWielding {

// True if the item of that id stands as a weapon in any of the character's offense groups.
bool IsWielded(const DCharacter& character, qint32 itemId);

} // namespace DWielding
