#include "CharacterFeatures.h"

#include "CharacterCommand.h"
#include "CliCommand.h"
#include "CliContext.h"
#include "CliLookup.h"
#include "DCharacter.h"
#include "DCharacterClass.h"
#include "DChosenFeature.h"
#include "DClassInfo.h"
#include "DDatabase.h"
#include "DFallRules.h"
#include "DHandBook.h"
#include "FCReleaser.h"

#include <QJsonArray>
#include <QJsonObject>

#include <memory>
#include <vector>

namespace {

QString className(const QUuid& guid) {
    const DClassInfo* info = DDatabase::GetClassInfoA(guid);
    return info ? QString(info->mName) : guid.toString();
}

// The class named by --class, or the first of the character's that offers picks.
DCharacterClass* findPickingClass(DCharacter& character, const QString& name, QString& error) {
    const QUuid wanted = name.isEmpty() ? QUuid() : CharacterCommand::FindClass(name);
    if (!name.isEmpty() && wanted.isNull()) {
        error = QStringLiteral("unknown class '%1'").arg(name);
        return nullptr;
    }
    for (DCharacterClass* characterClass : character.GetClassList()) {
        const QUuid guid = characterClass->GetClassGuid();
        if ((wanted.isNull() || guid == wanted) && DHandBook::GetPickedFeatureGroup(guid) >= 0)
            return characterClass;
    }
    error = wanted.isNull()
                ? QStringLiteral("the character has no class that picks features (rogue, "
                                 "ranger, bard, loremaster)")
                : QStringLiteral("%1 picks no features, or is not a class of the character")
                      .arg(className(wanted));
    return nullptr;
}

// "Opportunist (Rogue special ability)" may be named "Opportunist".
QString shortName(const QString& name) {
    const qsizetype open = name.lastIndexOf(QStringLiteral(" ("));
    return open > 0 && name.endsWith(')') ? name.left(open) : name;
}

const DFeatureOffer* findOffer(const std::vector<DFeatureOffer>& offers, const QString& name,
                               QString& error) {
    QStringList shortNames;
    for (const DFeatureOffer& offer : offers) {
        if (offer.name.compare(name, Qt::CaseInsensitive) == 0 ||
            shortName(offer.name).compare(name, Qt::CaseInsensitive) == 0)
            return &offer;
        shortNames << shortName(offer.name);
    }
    // Ranked by the names a player types; offered in full.
    QStringList closest;
    for (const QString& near : CliLookup::ClosestNames(name, shortNames, 3))
        closest << offers[size_t(shortNames.indexOf(near))].name;
    error = CliLookup::UnknownName(QStringLiteral("feature"), name, closest);
    return nullptr;
}

} // namespace

int CharacterFeatures::RunAddFeature(CliContext& context, QStringList args) {
    QString classText;
    const int at = int(args.indexOf(QStringLiteral("--class")));
    if (at >= 0) {
        if (at + 1 >= args.size())
            return CliContext::Fail(QStringLiteral("--class is missing its value"));
        classText = args[at + 1];
        args.remove(at, 2);
    }
    if (args.size() != 2)
        return CliContext::Fail(QStringLiteral("give FILE.chr FEATURE (see --help)"));
    QString path, error;
    FCRef<DCharacter> character(CharacterCommand::LoadFileArgument(context, args[0], path));
    if (!character)
        return 1;
    DCharacterClass* characterClass = findPickingClass(*character, classText, error);
    if (!characterClass)
        return CliContext::Fail(error);
    DHandBook::ComputeAndSetClassBonusFeatures(character.get(), characterClass);
    std::vector<DFeatureOffer> offers;
    DHandBook::GetFeatureOffers(character.get(), characterClass, offers);
    const DFeatureOffer* offer = findOffer(offers, args[1], error);
    if (!offer)
        return CliContext::Fail(error);
    const QString name = className(characterClass->GetClassGuid());
    const int left = characterClass->GetBonusFeatures() - characterClass->GetSpentBonusFeatures();
    if (left < 1)
        return CliContext::Fail(QStringLiteral("%1 %2 has no feature picks left (%3 given)")
                                    .arg(name)
                                    .arg(int(characterClass->GetLevel()))
                                    .arg(characterClass->GetBonusFeatures()));
    if (!offer->enabled)
        return CliContext::Fail(offer->level > 0
                                    ? QStringLiteral("%1 is already held or needs %2 level + "
                                                     "Intelligence modifier %3")
                                          .arg(offer->name, name)
                                          .arg(offer->level)
                                    : QStringLiteral("%1 is already held").arg(offer->name));
    FCRef<DChosenFeature> feature(new DChosenFeature());
    feature->SetFeatureGuid(offer->feature);
    feature->SetFeatureGroup(offer->group);
    feature->SetFeatureType(offer->type);
    if (offer->dataGuid.isNull())
        feature->SetFeatureData(offer->data);
    else
        feature->SetFeatureDataGuid(offer->dataGuid);
    feature->SetClassGuid(characterClass->GetClassGuid());
    DHandBook::AddChosenFeature(character.get(), characterClass, feature.get());
    return CharacterCommand::SaveAndShow(context, *character, path);
}

int CharacterFeatures::RunFall(CliContext& context, QStringList args, bool fallen) {
    QString classText;
    if (!CliCommand::TakeOption(args, "--class", classText))
        return CliContext::Fail(QStringLiteral("--class is missing its value"));
    if (args.size() != 1 || classText.isEmpty())
        return CliContext::Fail(QStringLiteral("give FILE.chr --class CLASS (see --help)"));
    QString path;
    FCRef<DCharacter> character(CharacterCommand::LoadFileArgument(context, args[0], path));
    if (!character)
        return 1;
    const QUuid guid = CharacterCommand::FindClass(classText);
    if (guid.isNull())
        return CliContext::Fail(QStringLiteral("unknown class '%1'").arg(classText));
    const QString name = className(guid);
    const DCharacterClass* characterClass = character->GetClassPointer(guid);
    if (!characterClass)
        return CliContext::Fail(QStringLiteral("the character has no %1 level").arg(name));
    if (!DFallRules::CanFall(guid))
        return CliContext::Fail(
            QStringLiteral("%1: the rules hold no fall for this class (a paladin, druid or "
                           "barbarian falls)")
                .arg(name));
    if (characterClass->GetIsExClass() == fallen)
        return CliContext::Fail(fallen ? QStringLiteral("%1 has already fallen").arg(name)
                                       : QStringLiteral("%1 has not fallen").arg(name));
    DHandBook::SetClassFallen(character.get(), guid, fallen, false);
    return CharacterCommand::SaveAndShow(context, *character, path);
}

void CharacterFeatures::Describe(const DCharacter& character, QJsonObject& description) {
    // The engine's read operations take a character they do not change.
    auto& features = const_cast<DCharacter&>(character);
    QJsonArray list;
    for (const int array : {0, 1}) {
        for (const DChosenFeature* feature : features.GetFeatureArray(array))
            list.append(QJsonObject{{"name", DHandBook::BuildFeatureName(feature)},
                                    {"class", className(feature->GetClassGuid())}});
    }
    description.insert("features", list);
}

void CharacterFeatures::Print(const QJsonObject& description) {
    const QJsonArray features = description["features"].toArray();
    if (features.isEmpty()) {
        CliContext::PrintLine(QStringLiteral("Features:   none"));
        return;
    }
    QStringList names;
    for (const QJsonValue value : features)
        names << value.toObject()["name"].toString();
    CliContext::PrintLine(QStringLiteral("Features:   %1").arg(names.join(QStringLiteral(", "))));
}
