#include "DHandBook.h"

#include <climits>

FCString DHandBook::BuildDieString(float dice, int die) {
    if (dice <= 0.0f)
        return FCString();
    if (dice >= 1.0f) {
        // A float past the int range has no int value; such a count is capped, not undefined.
        const int count = dice < 2147483648.0f ? int(dice) : INT_MAX;
        return FCString(QString::asprintf("%dd%d", count, die));
    }
    if (dice == 0.5f)
        return FCString(QString::asprintf("1/2d%d", die));
    return FCString(QString::asprintf("1/4d%d", die));
}
