#include "DRaceXml.h"

#include "DChosenLanguage.h"
#include "DChosenSpeed.h"
#include "DClassInfo.h"
#include "DDatabase.h"
#include "DHandBook.h"
#include "DRace.h"
#include "DRuleNames.h"
#include "DSizeInfo.h"
#include "DSpecialAttack.h"
#include "DXmlStream.h"

#include <QIODevice>

namespace {

constexpr const char* kAbilityNames[kAbilityCount] = {"Strength",     "Dexterity", "Constitution",
                                                      "Intelligence", "Wisdom",    "Charisma"};

class RaceWriter {
public:
    RaceWriter(DXmlStream& xml, const DRace& race) : mXml(xml), mRace(race) {}

    void WriteBody() {
        mXml.Text("race", mRace.GetRaceName());
        mXml.Text("challenge-rating", DHandBook::BuildFractionString(mRace.GetChallengeRating()));
        WriteSize();
        WriteHitDice();
        WriteNames("skills", "skill", SkillNames());
        WriteNames("languages", "language", LanguageNames());
        WriteFeatures();
        WriteAbilities();
        WriteSpeeds();
    }

private:
    void WriteSize() {
        mXml.Open("size");
        if (const DSizeInfo* size = DDatabase::GetSizeInfo(mRace.GetSizeId()))
            mXml.Text("category", size->GetSizeName());
        if (const DClassInfo* type = DDatabase::GetClassInfoA(mRace.GetClassGuid()))
            mXml.Text("type", type->mName);
        QStringList subtypes;
        for (int id : mRace.GetSubTypeArray())
            subtypes << mNames.ById("[info Race Subtypes]", id);
        subtypes.removeAll(QString());
        if (!subtypes.isEmpty())
            mXml.Text("subtype", subtypes.join(", "));
        mXml.Close("size");
    }

    void WriteHitDice() {
        mXml.Open("hit-dice");
        const DClassInfo* type = DDatabase::GetClassInfoA(mRace.GetClassGuid());
        const QString die =
            type ? DHandBook::BuildDieString(mRace.GetHitDieCount(), type->mDieId) : QString();
        if (!die.isEmpty()) {
            mXml.Open("hit-die");
            mXml.Text("die", die);
            const int con =
                mRace.GetNoAbility(kAbilityConstitution)
                    ? 0
                    : DHandBook::GetAbilityModifier(mRace.GetAbility(kAbilityConstitution));
            const int bonus = int(float(con) * mRace.GetHitDieCount());
            if (bonus != 0)
                mXml.Text("bonus", DXmlStream::Signed(bonus));
            mXml.Close("hit-die");
        }
        mXml.Close("hit-dice");
    }

    QStringList SkillNames() {
        QStringList names;
        for (const auto& skill : mRace.GetSkillSet())
            names << mNames.SkillDescription(*skill);
        return names;
    }

    QStringList LanguageNames() {
        QStringList names;
        for (const auto& [guid, language] : mRace.GetLanguageMap())
            names << mNames.ByGuid(kTableLanguage, guid);
        names.sort(Qt::CaseInsensitive);
        return names;
    }

    void WriteNames(const char* outer, const char* inner, QStringList names) {
        names.removeAll(QString());
        if (names.isEmpty())
            return;
        mXml.Open(outer);
        for (const QString& name : names) {
            mXml.Open(inner);
            mXml.Text("name", name);
            mXml.Close(inner);
        }
        mXml.Close(outer);
    }

    void WriteList(const char* outer, const char* inner, QStringList items) {
        items.removeAll(QString());
        if (items.isEmpty())
            return;
        mXml.Open(outer);
        for (const QString& item : items)
            mXml.Text(inner, item);
        mXml.Close(outer);
    }

    void WriteFeatures() {
        QStringList attacks, qualities, features, feats;
        for (const DSpecialAttack* attack : mRace.GetSpecialAttackArray())
            attacks << mNames.ById(kTableRaceSpecialAttacks, attack->GetAttackId());
        for (int id : mRace.GetSpecialQualityArray())
            qualities << mNames.ById("[types Race Special Quality]", id);
        for (const FCString& feature : mRace.GetRaceFeatureArray())
            features << feature;
        for (const auto& feat : mRace.GetFeatSet())
            feats << mNames.FeatDescription(*feat);
        mXml.Open("features");
        WriteList("special-attacks", "special-attack", attacks);
        WriteList("special-qualities", "special-quality", qualities);
        WriteList("race-features", "race-feature", features);
        feats.removeAll(QString());
        if (!feats.isEmpty()) {
            mXml.Open("feats");
            for (const QString& feat : feats) {
                mXml.Open("feat");
                mXml.Text("name", feat);
                mXml.Close("feat");
            }
            mXml.Close("feats");
        }
        mXml.Close("features");
    }

    // The adjustment plus 10: what the race makes of an average score.
    void WriteAbilities() {
        mXml.Open("abilities");
        for (int a = 0; a < kAbilityCount; ++a) {
            mXml.Open("ability");
            mXml.Text("name", QString::fromLatin1(kAbilityNames[a]));
            mXml.Text("abbr", QString::fromLatin1(kAbilityShortNames[a]));
            if (mRace.GetNoAbility(a)) {
                mXml.Text("base", QStringLiteral("--"));
                mXml.Text("modifier", QStringLiteral("--"));
            } else {
                const int score = mRace.GetAbilityMod(a) + 10;
                mXml.Number("base", score);
                mXml.Text("modifier", DXmlStream::Signed(DHandBook::GetAbilityModifier(score)));
            }
            mXml.Close("ability");
        }
        mXml.Close("abilities");
    }

    void WriteSpeeds() {
        mXml.Open("speeds");
        for (const DChosenSpeed* speed : mRace.GetSpeedArray()) {
            mXml.Open("speed");
            mXml.Text("name", mNames.ById("[info Speed]", speed->GetSpeedId()));
            mXml.Number("value", speed->GetSpeedValue());
            mXml.Close("speed");
        }
        mXml.Close("speeds");
    }

    DXmlStream& mXml;
    const DRace& mRace;
    DRuleNames mNames;
};

} // namespace

void DRaceXml::Write(const DRace& race, QTextStream& out, const QString& styleSheet) {
    DXmlStream xml(out);
    xml.WriteHead(styleSheet, false);
    xml.Open("races");
    RaceWriter(xml, race).WriteBody();
    xml.Close("races");
    out.flush();
}

QByteArray DRaceXml::ToBytes(const DRace& race, const QString& styleSheet) {
    QByteArray bytes;
    QTextStream out(&bytes, QIODevice::WriteOnly);
    out.setEncoding(QStringConverter::Utf8);
    Write(race, out, styleSheet);
    return bytes;
}
