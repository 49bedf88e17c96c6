// The character and monster documents: they parse back, escape what they must, and hold the
// optional elements exactly when the record has something to say.
#include "DCharacterXml.h"
#include "DCompanionRules.h"
#include "DRace.h"
#include "DRaceXml.h"
#include "DRollXml.h"
#include "DXslTransform.h"
#include "OutputTestSupport.h"

#include <QXmlStreamReader>

namespace {

using outputtest::CharacterRef;
using outputtest::OutputFixture;

// Every element of the document by its path ("character/classes/string") with its text.
QMultiMap<QString, QString> Elements(const QByteArray& document, QString& error) {
    QMultiMap<QString, QString> out;
    QXmlStreamReader reader(document);
    QStringList path;
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement()) {
            path << reader.name().toString();
        } else if (reader.isEndElement()) {
            path.removeLast();
        } else if (reader.isCharacters() && !reader.isWhitespace()) {
            out.insert(path.join('/'), reader.text().toString());
        }
    }
    if (reader.hasError())
        error = reader.errorString();
    return out;
}

class CharacterXmlTest : public OutputFixture {};

TEST_F(CharacterXmlTest, DocumentsRoundTripThroughTheParser) {
    const auto tordek = Tordek();
    tordek->SetCharacterName(FCString("Tordek & <Sons> \"Ltd\""));
    tordek->SetPlayerName(FCString("A>B"));
    const QByteArray document = DCharacterXml::ToBytes(tordek.get(), "Stat Block.xsl");
    EXPECT_TRUE(
        document.startsWith("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                            "<?xml-stylesheet type=\"text/xsl\" href=\"Stat Block.xsl\"?>\n\n"
                            "<character>\n\t<name>"));
    EXPECT_TRUE(document.contains("<name>Tordek &amp; &lt;Sons&gt; \"Ltd\"</name>"));
    QString error;
    const auto elements = Elements(document, error);
    EXPECT_TRUE(error.isEmpty()) << error.toStdString();
    EXPECT_EQ(elements.value("character/name"), "Tordek & <Sons> \"Ltd\"");
    EXPECT_EQ(elements.value("character/player"), "A>B");
    EXPECT_TRUE(DOutput::Transformer().CheckDocument(document, "tordek.xml", error))
        << error.toStdString();
}

TEST_F(CharacterXmlTest, OptionalElementsFollowTheRecord) {
    const auto tordek = Tordek();
    const auto ogre = Monster("Ogre");
    // A wizard with a cat familiar: the cat is a short character body of its own.
    CharacterRef wizard(new DCharacter());
    DHandBook::SetupCharacterWithRace(wizard.get(), ReadyRace("Human"));
    wizard->AddHistory(hoardtest::classGuid("Wizard"), 1.0f);
    DHandBook::CharacterSetup(wizard.get(), true);
    ASSERT_NE(DCompanionRules::AddCharacterAnimal(wizard.get(), *ReadyRace("Cat"),
                                                  DCompanionRules::kFamiliar),
              nullptr);
    QString error;
    const auto character = Elements(DCharacterXml::ToBytes(tordek.get(), QString()), error);
    const auto monster = Elements(DCharacterXml::ToBytes(ogre.get(), QString()), error);
    const auto master = Elements(DCharacterXml::ToBytes(wizard.get(), QString()), error);
    const struct {
        const char* what;
        bool present;
        bool expected;
    } cases[] = {
        {"no god, no domain: no deity", character.contains("character/deity/name"), false},
        {"a character's class string", character.value("character/classes/string") == "Ftr4", true},
        {"one hit die line per class with levels",
         character.values("character/hit-dice/hit-die/die") == QStringList{"4d10"}, true},
        {"Con 16 gives +3 a level", character.value("character/hit-dice/hit-die/bonus") == "+12",
         true},
        {"a character has no challenge rating", character.contains("character/challenge-rating"),
         false},
        {"a monster has its challenge rating", monster.value("monster/challenge-rating") == "3",
         true},
        {"a monster has no class string", monster.contains("monster/classes/string"), false},
        {"no money: no currency", monster.contains("monster/currency/gp"), false},
        {"nothing worn: no equipment", character.contains("character/equiped-items/armor/name"),
         false},
        {"no spells cast: no spells", character.contains("character/spells/spell/name"), false},
        {"no companion: no animals", character.contains("character/animals/animal/name"), false},
        {"a familiar under animals", master.value("character/animals/animal/name") == "Cat", true},
        {"the race's CR and alignment modifier",
         monster.value("monster/alignment/modifier") == "Usually", true},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.present, c.expected) << c.what;
}

TEST_F(CharacterXmlTest, SaveToXmlReplacesWholeOrNotAtAll) {
    const auto ogre = Monster("Ogre");
    const QString path = UserPath("ogre.xml");
    ASSERT_TRUE(DCharacterXml::SaveToXML(ogre.get(), path));
    EXPECT_TRUE(hoardtest::readFile(path).contains("<monster>"));
    // A folder that is a file cannot hold the document: nothing is left behind.
    ASSERT_TRUE(hoardtest::writeFile(UserPath("plain"), "x"));
    EXPECT_FALSE(DCharacterXml::SaveToXML(ogre.get(), UserPath("plain/ogre.xml")));
    EXPECT_EQ(hoardtest::readFile(UserPath("plain")), "x");
}

} // namespace

namespace {

TEST_F(CharacterXmlTest, RaceAndRollDocumentsParse) {
    DRace* race = DRace::CreateFromFile(ReadyRace("Ogre")->GetAccessFilePath(), false);
    ASSERT_NE(race, nullptr);
    const QByteArray raceDocument = DRaceXml::ToBytes(*race, QString());
    race->Release();
    QByteArray rollDocument;
    QTextStream out(&rollDocument);
    DRollXml::Write({{"2d6+1", {"7", "12"}}, {"d20 \"&\"", {}}}, out, QString());
    QString error;
    const auto races = Elements(raceDocument, error);
    EXPECT_TRUE(error.isEmpty()) << error.toStdString();
    const auto rolls = Elements(rollDocument, error);
    EXPECT_TRUE(error.isEmpty()) << error.toStdString();
    const struct {
        const char* what;
        bool holds;
    } cases[] = {
        // Giant d8, four dice, Con 15 (+2) on each.
        {"the ogre's hit die", races.value("races/hit-dice/hit-die/die") == "4d8"},
        {"its Constitution bonus", races.value("races/hit-dice/hit-die/bonus") == "+8"},
        // A race holds adjustments, kept even: Str 21 is +10, written as 10 + 10.
        {"a race's abilities are 10 and its adjustments",
         races.values("races/abilities/ability/base").contains("20") &&
             !races.values("races/abilities/ability/base").contains("21")},
        // QMultiMap gives the value inserted last first.
        {"rolls in list order",
         rolls.values("roll-lists/roll-list/rolls/roll") == QStringList{"12", "7"}},
        {"an expression with markup characters",
         rolls.values("roll-lists/roll-list/name").contains("d20 \"&\"")},
    };
    for (const auto& c : cases)
        EXPECT_TRUE(c.holds) << c.what;
}

} // namespace
