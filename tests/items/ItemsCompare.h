#pragma once

// Field-by-field comparisons of item records; each reports every differing field.

class DItem;
class DItemInfo;
class DMagicBonus;
class DMagicSpecialAbility;

namespace itemstest {

// Compares the fields of the info's own class and of every base, by its dynamic class.
// The masterwork type is compared only with `withMasterwork`, as files do not hold it.
void expectSameInfo(const DItemInfo* expected, const DItemInfo* actual, bool withMasterwork);
void expectSameAbility(const DMagicSpecialAbility* expected, const DMagicSpecialAbility* actual);
void expectSameBonus(const DMagicBonus& expected, const DMagicBonus& actual);
// Item fields, then the infos as above.
void expectSameItem(const DItem* expected, const DItem* actual);

} // namespace itemstest
