#include "FCString.h"

FCString FCString::numberWithSign(int value) {
    return value < 0 ? FCString(QString::number(value)) : FCString("+" + QString::number(value));
}

FCString FCString::guidText(const QUuid& guid) {
    return FCString(guid.toString(QUuid::WithBraces).toUpper());
}
