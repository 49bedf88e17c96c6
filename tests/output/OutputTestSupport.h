#pragma once

#include "DCharacter.h"
#include "DChosenFeat.h"
#include "DClassInfo.h"
#include "DDatabase.h"
#include "DFeatInfo.h"
#include "DFileObject.h"
#include "DHandBook.h"
#include "DObjectManager.h"
#include "DOptions.h"
#include "DOutput.h"
#include "DSkillInfo.h"
#include "FCReleaser.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

#include <QMap>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>

namespace outputtest {

using CharacterRef = FCRef<DCharacter>;

// The built data (rules, ready races, style sheets) and a scratch user folder for the
// working files of each test.
class OutputFixture : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        DOptions::mAppPath = FCString(hoardtest::builtDataDir());
        ASSERT_TRUE(DDatabase::StartUp(FCString(hoardtest::builtDataDir() + "/rules.db")));
        DObjectManager::StartUp();
    }
    static void TearDownTestSuite() {
        DObjectManager::ShutDown();
        DDatabase::ShutDown();
    }
    void SetUp() override {
        ASSERT_TRUE(mUserDir.isValid());
        DOptions::SetUserDataPath(FCString(mUserDir.path()));
        DOptions::SetTempPath(FCString(mUserDir.path() + "/tmp"));
    }

    static DFileObject* ReadyRace(const QString& name) {
        DFileObject* race = DObjectManager::FindRaceFile(name);
        EXPECT_NE(race, nullptr) << "no ready race " << name.toStdString();
        return race;
    }

    // A creature that is its ready race alone, without the gear a built monster carries (as
    // `hoard character new --race` makes it).
    static CharacterRef Monster(const QString& race) {
        CharacterRef character(new DCharacter());
        character->SetCharacterName(FCString(race));
        DHandBook::SetupCharacterWithRace(character.get(), ReadyRace(race));
        DHandBook::CharacterSetup(character.get(), true);
        return character;
    }

    // Tordek as `hoard demo` builds him: a dwarf fighter 4 rolled 15/13/14/10/12/8, 4 ranks of
    // Climb, Power Attack and Cleave.
    static CharacterRef Tordek() {
        CharacterRef character(new DCharacter());
        character->SetCharacterName(FCString("Tordek"));
        DHandBook::SetupCharacterWithRace(character.get(), ReadyRace("Dwarf"));
        const QUuid fighter = hoardtest::classGuid("Fighter");
        for (int level = 0; level < 4; ++level)
            character->AddHistory(fighter, 1.0f);
        DHandBook::CharacterSetup(character.get(), true);
        const int scores[kAbilityCount] = {15, 13, 14, 10, 12, 8};
        for (int a = 0; a < kAbilityCount; ++a)
            DHandBook::ChangeAbilityStatBase(character.get(), DAbilityStatType(a), scores[a],
                                             false);
        character->SetActiveClassId(fighter);
        DHandBook::AddSkill(character.get(), hoardtest::skillGuid("Climb"), QUuid(), 1, 4.0f,
                            false);
        for (const char* name : {"Power Attack", "Cleave"}) {
            auto* feat = new DChosenFeat();
            feat->SetFeatGuid(hoardtest::featGuid(QString::fromLatin1(name)));
            DHandBook::AddFeat(character.get(), true, feat);
            feat->Release();
        }
        return character;
    }

    // The text stat block as label -> value; the lines before the first labelled one under
    // "title" (the name) and "subtitle".
    static QMap<QString, QString> StatBlock(DCharacter* character) {
        QString text, error;
        EXPECT_TRUE(DOutput::BuildStatBlock(character, text, error)) << error.toStdString();
        QMap<QString, QString> lines;
        const QStringList rows = text.split('\n', Qt::SkipEmptyParts);
        for (int i = 0; i < rows.size(); ++i) {
            const qsizetype colon = rows[i].indexOf(QLatin1String(": "));
            if (colon < 0)
                lines.insert(i == 0 ? QStringLiteral("title") : QStringLiteral("subtitle"),
                             rows[i]);
            else
                lines.insert(rows[i].left(colon), rows[i].mid(colon + 2));
        }
        return lines;
    }

    QString UserPath(const QString& file) const { return mUserDir.path() + "/" + file; }

private:
    QTemporaryDir mUserDir;
};

} // namespace outputtest
