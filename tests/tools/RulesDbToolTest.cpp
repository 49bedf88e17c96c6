// The rules database tool on small sources: every kind of fault is reported at the right file
// and line, and good sources come out as the rows and keys the rules code looks up.
#include "RulesDbRun.h"
#include "TestSupport.h"

#include <QDir>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>

namespace {

const QString CoinHeader =
    QStringLiteral("Id\tName\tShortName\tCopperEx\tSilverEx\tGoldEx\tPlatinumEx\n");

// A source folder with the project's registry and schema and no rows yet.
class SourceDir {
public:
    SourceDir() {
        const QDir project(RulesDbRun::projectSources());
        QDir(mDir.path()).mkpath(QStringLiteral("schema"));
        QDir(mDir.path()).mkpath(QStringLiteral("rows"));
        copy(project.filePath(QStringLiteral("tables.txt")), QStringLiteral("tables.txt"));
        const QDir schema(project.filePath(QStringLiteral("schema")));
        for (const QString& name : schema.entryList({QStringLiteral("*.sql")}, QDir::Files))
            copy(schema.filePath(name), QStringLiteral("schema/") + name);
    }

    QString path() const { return mDir.path(); }
    QString file(const QString& relative) const { return mDir.filePath(relative); }

    void writeRows(const QString& table, const QString& text) const {
        ASSERT_TRUE(
            hoardtest::writeFile(file(QStringLiteral("rows/%1.tsv").arg(table)), text.toUtf8()));
    }

    void edit(const QString& relative, const std::function<QString(QString)>& change) const {
        const QString text = QString::fromUtf8(hoardtest::readFile(file(relative)));
        ASSERT_TRUE(hoardtest::writeFile(file(relative), change(text).toUtf8()));
    }

    int lineCount(const QString& relative) const {
        return int(hoardtest::readFile(file(relative)).count('\n'));
    }

private:
    void copy(const QString& from, const QString& to) const {
        ASSERT_TRUE(QFile::copy(from, file(to))) << from.toStdString();
    }

    QTemporaryDir mDir;
};

struct BadSource {
    const char* what;
    std::function<void(const SourceDir&)> setUp;
    QString file; // relative to the source folder
    std::function<int(const SourceDir&)> line;
    QString message;
};

std::function<int(const SourceDir&)> at(int line) {
    return [line](const SourceDir&) { return line; };
}

TEST(RulesDbToolTest, RejectsEachKindOfBadSourceAtItsFileAndLine) {
    const QList<BadSource> cases = {
        {"a row with too few cells",
         [](const SourceDir& s) { s.writeRows("info Coin", CoinHeader + "0\tCopper\tcp\n"); },
         "rows/info Coin.tsv", at(2), "3 cells, the header has 7"},
        {"a word where an integer is declared, after a comment line",
         [](const SourceDir& s) {
             s.writeRows("info Coin",
                         CoinHeader + "# copper first\none\tCopper\tcp\t1\t0.1\t0.01\t0.001\n");
         },
         "rows/info Coin.tsv", at(3), "'one' is not an integer (column Id)"},
        {"a word where a real is declared",
         [](const SourceDir& s) {
             s.writeRows("info Coin", CoinHeader + "0\tCopper\tcp\t1\t0.1\tlots\t0.001\n");
         },
         "rows/info Coin.tsv", at(2), "'lots' is not a number (column GoldEx)"},
        {"a duplicate integer key",
         [](const SourceDir& s) {
             s.writeRows("info Coin", CoinHeader + "0\tCopper\tcp\t1\t0.1\t0.01\t0.001\n\n"
                                                   "0\tSilver\tsp\t10\t1\t0.1\t0.01\n");
         },
         "rows/info Coin.tsv", at(4), "duplicate key (Id) = (0), first at line 2"},
        {"a duplicate GUID key written out",
         [](const SourceDir& s) {
             s.writeRows("info Skill", "Id\tGuid\tName\n"
                                       "1\t{2B86EDD4-618D-423D-9256-8DFBD3C7D88B}\tSpeak Language\n"
                                       "2\t{2b86edd4-618d-423d-9256-8dfbd3c7d88b}\tLiteracy\n");
         },
         "rows/info Skill.tsv", at(3),
         "duplicate key (Guid) = ({2b86edd4-618d-423d-9256-8dfbd3c7d88b}), first at line 2"},
        {"a header without a required column",
         [](const SourceDir& s) {
             s.writeRows("info Coin", "Id\tName\tCopperEx\tSilverEx\tGoldEx\tPlatinumEx\n0\tCopper"
                                      "\t1\t0.1\t0.01\t0.001\n");
         },
         "rows/info Coin.tsv", at(1), "missing required column ShortName"},
        {"an empty cell in a required column",
         [](const SourceDir& s) {
             s.writeRows("info Coin", CoinHeader + "0\tCopper\t\t1\t0.1\t0.01\t0.001\n");
         },
         "rows/info Coin.tsv", at(2), "empty cell in required column ShortName"},
        {"a column the schema does not know",
         [](const SourceDir& s) {
             s.writeRows("types Gender", "Id\tName\tColour\n0\tMale\tblue\n");
         },
         "rows/types Gender.tsv", at(1), "unknown column Colour in [types Gender]"},
        {"a reference by a name that no row has",
         [](const SourceDir& s) {
             s.writeRows("info Skill", "Id\tName\n1\tClimb\n");
             s.writeRows("info Class Skill Usability",
                         "ClassId\tSkillId\tUsability\nNobody\tClimb\t1\n");
         },
         "rows/info Class Skill Usability.tsv", at(2), "'Nobody' names no row of [info Class]"},
        {"a reference by a GUID that no row has",
         [](const SourceDir& s) {
             s.writeRows("info Spell Level",
                         "Id\tLevel\n{11111111-2222-3333-4444-555555555555}\t1\n");
         },
         "rows/info Spell Level.tsv", at(2),
         "{11111111-2222-3333-4444-555555555555} names no row of [info Spell]"},
        {"a reference by an integer that no row has",
         [](const SourceDir& s) {
             s.writeRows("info Size Direction", "Id\tName\n0\tTall\n");
             s.writeRows("info Size Scale",
                         "Id\tSubId\tNatReach\tFaceWidth\tFaceLength\n42\tTall\t5\t5\t5\n");
         },
         "rows/info Size Scale.tsv", at(2), "42 names no row of [info Size]"},
        {"a name that two rows share",
         [](const SourceDir& s) {
             s.writeRows("info Feat", "Guid\tName\n{11111111-2222-3333-4444-555555555555}\tDodge\n"
                                      "{66666666-2222-3333-4444-555555555555}\tDodge\n");
             s.writeRows("info Feat Bonuses", "Id\tType\tData\nDodge\t5\t1\n");
         },
         "rows/info Feat Bonuses.tsv", at(2), "'Dodge' names 2 rows of [info Feat]"},
        {"a GUID that is not one",
         [](const SourceDir& s) { s.writeRows("info Feat", "Guid\tName\n{1234}\tDodge\n"); },
         "rows/info Feat.tsv", at(2), "'{1234}' is not a GUID (column Guid)"},
        {"a row file of a table the registry does not list",
         [](const SourceDir& s) { s.writeRows("info Nothing", "Id\n1\n"); },
         "rows/info Nothing.tsv", at(1), "no table [info Nothing] in the registry"},
        {"a registry table without a schema",
         [](const SourceDir& s) {
             s.edit("schema/types.sql", [](QString text) {
                 return text.remove(
                     QStringLiteral("CREATE TABLE [types Gender] (Id INTEGER NOT NULL PRIMARY KEY, "
                                    "Name VARCHAR(100) NOT NULL);"));
             });
         },
         "tables.txt", at(6), "no schema for table [types Gender]"},
        {"a registry with a table too few",
         [](const SourceDir& s) {
             s.edit("tables.txt", [](QString text) {
                 return text.remove(QStringLiteral("211\t[types Table Element]\n"));
             });
         },
         "tables.txt", at(213), "211 tables listed, expected 212"},
        {"an indexed table after the extra tables",
         [](const SourceDir& s) {
             s.edit("tables.txt",
                    [](QString text) { return text + QStringLiteral("212\t[types Late]\n"); });
         },
         "tables.txt", [](const SourceDir& s) { return s.lineCount("tables.txt"); },
         "an indexed table after the extra tables"},
        {"an extra table without a schema",
         [](const SourceDir& s) {
             s.edit("tables.txt",
                    [](QString text) { return text + QStringLiteral("-\t[Table Nowhere]\n"); });
         },
         "tables.txt", [](const SourceDir& s) { return s.lineCount("tables.txt"); },
         "no schema for table [Table Nowhere]"},
        {"an extra table listed twice",
         [](const SourceDir& s) {
             s.edit("tables.txt", [](QString text) {
                 return text + QStringLiteral("-\t[table 7-7 armor size]\n");
             });
         },
         "tables.txt", [](const SourceDir& s) { return s.lineCount("tables.txt"); },
         "table [table 7-7 armor size] listed twice"},
        {"a schema table outside the registry",
         [](const SourceDir& s) {
             s.edit("schema/types.sql", [](QString text) {
                 return text +
                        QStringLiteral("CREATE TABLE [types Extra] (Id INTEGER NOT NULL);\n");
             });
         },
         "schema/types.sql", [](const SourceDir& s) { return s.lineCount("schema/types.sql"); },
         "table [types Extra] is not in the registry"},
        {"a schema statement that does not parse",
         [](const SourceDir& s) {
             s.edit("schema/types.sql", [](QString text) {
                 return text + QStringLiteral("CREATE TABLE [types Broken (Id INTEGER);\n");
             });
         },
         "schema/types.sql", [](const SourceDir& s) { return s.lineCount("schema/types.sql"); },
         "unclosed ["},
    };

    for (const BadSource& bad : cases) {
        SCOPED_TRACE(bad.what);
        const SourceDir source;
        bad.setUp(source);
        const QString output = source.file(QStringLiteral("out/rules.db"));
        const RulesDbRun result = RulesDbRun::run(source.path(), output);
        const QString expected = QStringLiteral("%1:%2: %3")
                                     .arg(source.file(bad.file))
                                     .arg(bad.line(source))
                                     .arg(bad.message);
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_EQ(result.errorText.toStdString(), expected.toStdString());
        EXPECT_FALSE(QFile::exists(output));
    }
}

// Reads one value with a connection of the test's own.
QVariant queryValue(const QString& database, const QString& statement) {
    QVariant value;
    {
        QSqlDatabase db =
            QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("tool-test"));
        db.setDatabaseName(database);
        if (db.open()) {
            QSqlQuery query(statement, db);
            if (query.next())
                value = query.value(0);
        }
    }
    QSqlDatabase::removeDatabase(QStringLiteral("tool-test"));
    return value;
}

TEST(RulesDbToolTest, ResolvesNamesDerivesGuidsAndFillsDefaults) {
    const SourceDir source;
    source.writeRows("info Coin", CoinHeader + "2\tGold\tgp\t100\t10\t1\t0.1\n");
    source.writeRows("types Dice", "Id\tName\n10\td10\n");
    source.writeRows("info Class", "Id\tName\tClassType\tDieId\tAttackBonusMultiplier\tSkillPPL\n"
                                   "5\tFighter\t1\t10\t1.0\t2\n");
    source.writeRows("info Skill", "Id\tName\tIsMulti\n1\tClimb\t0\n2\tKnowledge\t1\n");
    source.writeRows("info Skill Sub", "Guid\tName\nKnowledge\tArcana\n");
    source.writeRows("info Class Skill Usability", "ClassId\tSkillId\nFighter\tClimb\n");
    source.writeRows(
        "info Skill Bonuses Synergy",
        "SourceSkill\tSourceSubSkill\tTargetSkill\nKnowledge\tKnowledge/Arcana\tClimb\n");
    source.writeRows("info Feat", "Name\nDodge\n");
    source.writeRows("info Features", "Id\tName\nBonus Feat\tBonus Feat\n");
    source.writeRows("info Class Features", "ClassId\tLevel\tFeatureId\tDataGuid\n"
                                            "Fighter\t1\tBonus Feat\t[info Feat]:Dodge\n");
    // A table that code does not list, only rows name; it references a listed one by name.
    source.writeRows("info Size", "Id\tName\tCapMod\tArmorMod\tDimMin\tDimMax\tWtMin\tWtMax\t"
                                  "CostMod\tWeightMod\n3\tSmall\t0.75\t1\t2\t4\t8\t60\t1\t0.5\n");
    source.writeRows("Table 7-7 Armor Size", "Min\tMax\tSizeId\n1\t10\tSmall\n");
    const QString output = source.file(QStringLiteral("rules.db"));
    const RulesDbRun result = RulesDbRun::run(source.path(), output);
    ASSERT_EQ(result.exitCode, 0) << result.errorText.toStdString();

    // Name-based GUIDs: version 5 UUIDs of the project namespace
    // {6F1C1A2E-4B1D-4C57-9A0E-5D2B7E8C3F41}, worked out with an independent UUID library.
    const QString fighter = QStringLiteral("{7CE73608-E5F2-5EB4-9898-DFF27F01D72B}");
    const QString dodge = QStringLiteral("{673C441E-BD5E-5FD4-92D2-B3467DBD5684}");
    const QString arcana = QStringLiteral("{F82AFE71-326D-5628-831B-892F02625867}");
    struct Check {
        const char* statement;
        QVariant expected;
    };
    const QList<Check> checks = {
        {"SELECT Guid FROM [info Class] WHERE Name='Fighter'", fighter},
        {"SELECT ClassId FROM [info Class Skill Usability]", fighter},
        {"SELECT Usability FROM [info Class Skill Usability]", 1}, // the schema's default
        {"SELECT Weight FROM [info Coin] WHERE Id=2", 0.0},        // the schema's default
        {"SELECT GDieId FROM [info Class]", 4},
        {"SELECT SubGuid FROM [info Skill Sub]", arcana},
        {"SELECT SourceSubSkill FROM [info Skill Bonuses Synergy]", arcana},
        {"SELECT TargetSubSkill IS NULL FROM [info Skill Bonuses Synergy]", 1},
        {"SELECT DataGuid FROM [info Class Features]", dodge},
        {"SELECT Id = Guid FROM [info Features]", 1},
        {"SELECT COUNT(*) FROM [info Spell]", 0},
        {"SELECT SizeId FROM [Table 7-7 Armor Size] WHERE Min=1", 3},
    };
    for (const Check& check : checks) {
        SCOPED_TRACE(check.statement);
        EXPECT_EQ(queryValue(output, QString::fromLatin1(check.statement)).toString().toStdString(),
                  check.expected.toString().toStdString());
    }
}

TEST(RulesDbToolTest, FailedBuildLeavesThePreviousDatabaseInPlace) {
    const SourceDir source;
    source.writeRows("info Coin", CoinHeader + "2\tGold\tgp\t100\t10\t1\t0.1\n");
    const QString output = source.file(QStringLiteral("rules.db"));
    ASSERT_EQ(RulesDbRun::run(source.path(), output).exitCode, 0);
    const QByteArray before = hoardtest::readFile(output);

    source.writeRows("info Coin", CoinHeader + "2\tGold\tgp\t100\t10\tone\t0.1\n");
    EXPECT_EQ(RulesDbRun::run(source.path(), output).exitCode, 1);

    EXPECT_EQ(hoardtest::readFile(output), before);
    EXPECT_EQ(queryValue(output, QStringLiteral("SELECT GoldEx FROM [info Coin]")).toDouble(), 1.0);
    const QStringList left =
        QDir(source.path()).entryList({QStringLiteral(".rules.db*")}, QDir::Files | QDir::Hidden);
    EXPECT_TRUE(left.isEmpty()) << "a temporary file stays behind: "
                                << left.join(u' ').toStdString();
}

} // namespace
