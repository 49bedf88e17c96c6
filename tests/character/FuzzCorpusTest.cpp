// Replays the fuzz entries over their seed corpora and over cut and bit-flipped copies, so a
// reader fault that a fuzz run once found stays found in every build (the sanitizer build
// turns a bad read into a failure).
#include "FuzzTargets.h"

#include "DCharacter.h"
#include "DCharacterXml.h"
#include "DDatabase.h"
#include "DRace.h"
#include "DTreasure.h"
#include "DTreasureGenerator.h"
#include "DXslTransform.h"
#include "FCRandom.h"
#include "TestSupport.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <random>

namespace {

using Entry = int (*)(const uint8_t*, size_t);

// The bytes themselves, every 7th cut, and flipped bits at fixed seeded places.
void replay(Entry entry, const QByteArray& bytes) {
    const auto run = [entry](const QByteArray& b) {
        EXPECT_EQ(entry(reinterpret_cast<const uint8_t*>(b.constData()), size_t(b.size())), 0);
    };
    run(bytes);
    for (qsizetype cut = 0; cut < bytes.size(); cut += 7)
        run(bytes.left(cut));
    std::mt19937 flips(uint32_t(bytes.size()));
    for (int i = 0; i < 64 && !bytes.isEmpty(); ++i) {
        QByteArray damaged = bytes;
        const auto at = qsizetype(flips() % uint32_t(bytes.size()));
        damaged[at] = char(damaged[at] ^ char(1 << (flips() % 8)));
        run(damaged);
    }
}

} // namespace

TEST(FuzzCorpus, ReadersSurviveTheSeedsAndTheirDamagedCopies) {
    const QDir races(hoardtest::builtDataDir() + "/Core/Races");
    const QStringList files = races.entryList({"*.rac"}, QDir::Files, QDir::Name);
    ASSERT_GT(files.size(), 100);
    // Every tenth shipped race keeps the run short; the fuzz programs use all of them.
    for (qsizetype i = 0; i < files.size(); i += 10) {
        const QString path = races.filePath(files[i]);
        SCOPED_TRACE(path.toStdString());
        DRace* race = DRace::CreateFromFile(FCString(path), false);
        ASSERT_NE(race, nullptr) << "a seed must itself be readable";
        race->Release();
        const QByteArray bytes = hoardtest::readFile(path);
        replay(hoardfuzz::FuzzRaceFile, bytes);
        replay(hoardfuzz::FuzzArchive, bytes.mid(12)); // the object after the file header
    }

    QTemporaryDir dir;
    const QString saved = dir.path() + "/seed.chr";
    DCharacter character;
    character.SetCharacterName(FCString("Seed"));
    ASSERT_TRUE(character.SaveToFile(FCString(saved)));
    replay(hoardfuzz::FuzzCharacterFile, hoardtest::readFile(saved));

    // A treasure with coins, notes and items of the kinds a hoard holds.
    ASSERT_TRUE(DDatabase::StartUp(FCString(hoardtest::builtDataDir() + "/rules.db")));
    FC::SeedRandom(3);
    DTreasure treasure;
    DTreasureGenerator::GenerateTreasure(&treasure, 15);
    treasure.SetNotes(QStringLiteral("seed"));
    const QString hoard = dir.path() + "/seed.trs";
    ASSERT_TRUE(treasure.SaveToFile(hoard));
    replay(hoardfuzz::FuzzTreasureFile, hoardtest::readFile(hoard));
    DDatabase::ShutDown();
}

TEST(FuzzCorpus, OutputDocumentsAndRuleRowsSurviveDamage) {
    // A character document as the program writes it for its style sheets.
    ASSERT_TRUE(DDatabase::StartUp(FCString(hoardtest::builtDataDir() + "/rules.db")));
    DCharacter character;
    character.SetCharacterName(FCString("Seed <&> \"quoted\""));
    const QByteArray document = DCharacterXml::ToBytes(&character, QString());
    DDatabase::ShutDown();
    // The seed must reach the whole sheet, or the damaged copies test only the parser.
    const QString sheets = QStringLiteral(HOARD_XML_SOURCE_DIR);
    QByteArray block;
    QString error;
    ASSERT_TRUE(DXslTransform({sheets}).Apply(document, "seed.xml",
                                              sheets + "/Character/Stat Block.xsl", block, error))
        << error.toStdString();
    EXPECT_TRUE(block.contains("Seed <&>"));
    replay(hoardfuzz::FuzzXmlDocument, document);

    // Every tenth small shipped rules source, behind its table name as the entry expects.
    const QDir rows(QStringLiteral(HOARD_RULES_SOURCE_DIR "/rows"));
    int small = 0;
    int replayed = 0;
    for (const QFileInfo& file : rows.entryInfoList({"*.tsv"}, QDir::Files, QDir::Name)) {
        if (file.size() > 600 || small++ % 10 != 0)
            continue;
        SCOPED_TRACE(file.fileName().toStdString());
        const QByteArray bytes =
            '[' + file.completeBaseName().toUtf8() + "]\n" + hoardtest::readFile(file.filePath());
        replay(hoardfuzz::FuzzRuleRows, bytes);
        ++replayed;
    }
    EXPECT_GT(replayed, 5);
}
