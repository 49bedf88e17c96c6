#pragma once

#include <QString>
#include <QUuid>

// The framework's string: a QString with the few helpers the rules code needs.
class FCString : public QString {
public:
    using QString::QString;
    FCString() = default;
    FCString(const QString& other) : QString(other) {}
    FCString(QString&& other) : QString(std::move(other)) {}

    // "+3", "-2", "+0": modifiers are always shown with a sign.
    static FCString numberWithSign(int value);
    // The braced upper-case text form of a GUID, as the rules database stores it.
    static FCString guidText(const QUuid& guid);
};
