#include "BuiltRulesTest.h"

#include "DCharacter.h"
#include "DDatabase.h"
#include "DFailureReporter.h"
#include "DFileObject.h"
#include "DHandBook.h"
#include "DObjectManager.h"
#include "DOptions.h"
#include "DTable.h"
#include "DTableText.h"
#include "FCReleaser.h"
#include "TestSupport.h"

#include <QDir>

namespace hoardtest {

void BuiltRulesTest::SetUp() {
    ASSERT_TRUE(mUser.isValid());
    DFailureReporter::SetQuiet(true);
    DOptions::mAppPath = FCString(builtDataDir());
    DOptions::SetUserDataPath(FCString(mUser.path()));
    ASSERT_TRUE(DDatabase::StartUp(FCString(builtDataDir() + "/rules.db")));
    DObjectManager::StartUp();
}

void BuiltRulesTest::TearDown() {
    DDatabase::ShutDown();
    DFailureReporter::SetQuiet(false);
}

FCRef<DCharacter> BuiltRulesTest::Monster(const QString& race) {
    FCRef<DFileObject> entry(
        DObjectManager::CreateFileObject(kObjectRace, kFileCore, FCString(race + ".rac")));
    FCRef<DCharacter> monster(new DCharacter());
    DHandBook::SetupCharacterWithRace(monster.get(), entry.get());
    if (!monster->GetRace())
        return nullptr;
    DHandBook::CharacterSetup(monster.get(), true);
    return monster;
}

void BuiltRulesTest::SavePaladin(const QString& name, const QString& file) const {
    FCRef<DFileObject> human(
        DObjectManager::CreateFileObject(kObjectRace, kFileCore, FCString("Human.rac")));
    FCRef<DCharacter> hero(new DCharacter());
    DHandBook::SetupCharacterWithRace(hero.get(), human.get());
    hero->SetCharacterName(FCString(name));
    hero->SetAlignmentId(9);
    hero->AddHistory(classGuid(QStringLiteral("Paladin")), 1.0f);
    DHandBook::CharacterSetup(hero.get(), true);
    ASSERT_TRUE(QDir(mUser.path()).mkpath(QStringLiteral("Characters")));
    ASSERT_TRUE(hero->SaveToFile(FCString(UserPath(QStringLiteral("Characters/") + file))));
}

void saveTable(const QString& folder, const QString& name, const QString& text) {
    FCRef<DTable> table(new DTable());
    int line = 0;
    QString error;
    ASSERT_TRUE(DTableText::Parse(text, *table, line, error)) << error.toStdString();
    ASSERT_TRUE(table->SaveToFile(FCString(folder + "/" + name + ".tbl")));
}

} // namespace hoardtest
