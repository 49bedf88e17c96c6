#include "CliLookup.h"

#include "DFileObject.h"
#include "DObjectManager.h"

#include <algorithm>
#include <vector>

namespace {

int editDistance(const QString& a, const QString& b) {
    std::vector<int> row(size_t(b.size()) + 1);
    for (size_t j = 0; j < row.size(); ++j)
        row[j] = int(j);
    for (qsizetype i = 1; i <= a.size(); ++i) {
        int diagonal = row[0];
        row[0] = int(i);
        for (qsizetype j = 1; j <= b.size(); ++j) {
            const int above = row[size_t(j)];
            const int cost = a[i - 1] == b[j - 1] ? 0 : 1;
            row[size_t(j)] = std::min({above + 1, row[size_t(j - 1)] + 1, diagonal + cost});
            diagonal = above;
        }
    }
    return row.back();
}

} // namespace

QStringList CliLookup::RaceNames() {
    QStringList names;
    for (const auto& entry : DObjectManager::GetRaceFileSet())
        names << entry->GetBaseFileName();
    names.removeDuplicates();
    return names;
}

QStringList CliLookup::ClosestNames(const QString& name, const QStringList& names, int count) {
    QList<std::pair<int, QString>> ranked;
    for (const QString& candidate : names) {
        const int distance = candidate.contains(name, Qt::CaseInsensitive)
                                 ? 1
                                 : editDistance(name.toLower(), candidate.toLower());
        ranked.append({distance, candidate});
    }
    std::sort(ranked.begin(), ranked.end());
    QStringList closest;
    for (int i = 0; i < std::min(count, int(ranked.size())); ++i)
        closest << ranked[i].second;
    return closest;
}

QString CliLookup::UnknownName(const QString& kind, const QString& name,
                               const QStringList& closest) {
    return QStringLiteral("unknown %1 '%2'%3")
        .arg(kind, name,
             closest.isEmpty() ? QString() : QStringLiteral("; closest: ") + closest.join(", "));
}
