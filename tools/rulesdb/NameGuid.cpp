#include "NameGuid.h"

#include <QRegularExpression>
#include <QUuid>

namespace {

// Changing this changes every derived GUID, and with it the keys that object files store.
const QUuid ProjectNamespace(QStringLiteral("{6F1C1A2E-4B1D-4C57-9A0E-5D2B7E8C3F41}"));

} // namespace

QString NameGuid::forRow(const QString& table, const QString& rowName) {
    const QUuid uuid = QUuid::createUuidV5(ProjectNamespace, table + u'/' + rowName);
    return uuid.toString(QUuid::WithBraces).toUpper();
}

QString NameGuid::format(const QString& guidText) {
    return guidText.toUpper();
}

bool NameGuid::isGuidText(const QString& text) {
    static const QRegularExpression form(QStringLiteral(
        "^\\{[0-9A-Fa-f]{8}-[0-9A-Fa-f]{4}-[0-9A-Fa-f]{4}-[0-9A-Fa-f]{4}-[0-9A-Fa-f]{12}\\}$"));
    return form.match(text).hasMatch();
}
