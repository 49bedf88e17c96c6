#include "DFeatureInfo.h"

#include "DDatabase.h"
#include "DFailureReporter.h"

#include "Connection.h"
#include "ResultSet.h"
#include "Statement.h"

#include <exception>
#include <memory>

FC_IMPLEMENT_CLASS(DFeatureInfo, "DInfo", nullptr)

namespace {
constexpr int kRangerFavoredEnemyTable = 183;

// Name of a favored-enemy row; empty if there is none or the query fails.
QString favoredEnemyName(int id) {
    odbc::Connection* connection = DDatabase::GetConnection();
    if (!connection)
        return {};
    try {
        const std::unique_ptr<odbc::Statement> statement(connection->createStatement());
        const QString sql =
            QString::asprintf("SELECT Id, Name FROM %s WHERE (Id=%d)",
                              qPrintable(DDatabase::GetTableName(kRangerFavoredEnemyTable)), id);
        odbc::ResultSet* rows = statement->executeQuery(sql);
        if (rows && rows->next())
            return rows->getString(QStringLiteral("Name"));
    } catch (const std::exception& error) {
        DFailureReporter::Report(QStringLiteral("Query failed"), QString::fromUtf8(error.what()));
    }
    return {};
}
} // namespace

void DFeatureInfo::SetData(odbc::ResultSet* resultSet) {
    mFeatureGuid = resultSet->getGUID(QStringLiteral("Guid"));
    mFeatureName = resultSet->getString(QStringLiteral("Name"));
    mFeatureGroup = resultSet->getInt(QStringLiteral("Group"));
    mFeatureType = resultSet->getInt(QStringLiteral("Type"));
}

FCString DFeatureInfo::GetDescription(int data) const {
    FCString description = mFeatureName;
    if (data == -1)
        return description;
    switch (mFeatureType) {
    case kFeatureTypeAbilityBonus:
        description += QString::asprintf(" (3 + %d)", data);
        break;
    case kFeatureTypeFavoredEnemy: {
        const QString enemy = favoredEnemyName(data);
        if (!enemy.isEmpty())
            description += QStringLiteral(" (%1)").arg(enemy);
        break;
    }
    default:
        // Type 4 adds nothing here: a weapon is named by GUID, which the integer data cannot
        // carry, and weapon records belong to the items layer above this one.
        break;
    }
    return description;
}
