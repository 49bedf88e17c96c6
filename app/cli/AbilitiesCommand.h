#pragma once

#include "CliCommand.h"

#include <QList>

class QJsonObject;

// "hoard abilities --method 4d6-assign": six ability scores by one of the rolling methods of
// the rules database, a point-buy set checked against its budget, or the standard array.
class AbilitiesCommand : public CliCommand {
public:
    QString Name() const override { return QStringLiteral("abilities"); }
    QString Summary() const override {
        return QStringLiteral("roll, buy or check six ability scores");
    }
    QString Help() const override;
    int Run(CliContext& context, QStringList args) override;

    static constexpr int kMaxSets = 100;
    static constexpr int kMaxBudget = 10000;
    static constexpr int kMaxScore = 99;
    // Point buy starts every score at 8; free entry lets a score be anything from 1.
    static constexpr int kPointBuyFloor = 8;
    static constexpr int kDefaultBudget = 25;

    // The method id of an id or short name ("0", "4d6-assign", "point-buy"); -1 if none.
    static int FindMethod(const QString& text);

private:
    struct Method {
        int id;
        const char* shortName;
        const char* what;
    };
    static const QList<Method>& Methods();
    // The row name of "[types Roll Methods]", or the short name without a database.
    static QString MethodName(int id);

    int RunDice(CliContext& context, int method, int sets);
    int RunPointBuy(CliContext& context, int method, const QList<int>& scores, int budget,
                    const QString& campaign);
    int RunFixed(CliContext& context, int method, const QList<int>& scores);
    static QJsonObject SetObject(int method, const QList<int>& scores,
                                 const QList<QList<int>>& dice);
    static void PrintSet(const QList<int>& scores, const QList<QList<int>>& dice,
                         const QList<int>& costs);
};
