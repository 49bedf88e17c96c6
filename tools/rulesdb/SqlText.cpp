#include "SqlText.h"

namespace SqlText {

QString Type(const ColumnDef& column, const QString& realType) {
    switch (column.type) {
    case ColumnDef::Type::Integer:
        return QStringLiteral("INTEGER");
    case ColumnDef::Type::Real:
        return realType;
    case ColumnDef::Type::Varchar:
        return QStringLiteral("VARCHAR(%1)").arg(column.length);
    case ColumnDef::Type::Text:
        break;
    }
    return QStringLiteral("TEXT");
}

QString Default(const ColumnDef& column) {
    if (column.type == ColumnDef::Type::Integer || column.type == ColumnDef::Type::Real)
        return column.defaultValue;
    QString quoted = column.defaultValue;
    return u'\'' + quoted.replace(u'\'', QLatin1String("''")) + u'\'';
}

QString NameList(const QStringList& names, QString (*quote)(const QString&)) {
    QStringList quoted;
    for (const QString& name : names)
        quoted.append(quote(name));
    return quoted.join(QLatin1String(", "));
}

} // namespace SqlText
