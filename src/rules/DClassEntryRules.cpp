#include "DClassEntryRules.h"

#include "DCharacter.h"
#include "DCharacterClass.h"
#include "DClassInfo.h"
#include "DDatabase.h"
#include "DHandBook.h"

#include <algorithm>

namespace {

// "[types Class]" rows of the classes a character takes.
constexpr int kBaseClassType = 1;
constexpr int kPrestigeClassType = 4;

QString nameOf(const QUuid& guid) {
    const DClassInfo* info = DDatabase::GetClassInfoA(guid);
    return info ? QString(info->mName) : guid.toString();
}

} // namespace

QString DClassEntryRules::Refusal(DCharacter& character, const QUuid& classGuid) {
    const DCharacterClass* held = character.GetClassPointer(classGuid);
    if (held && held->GetIsExClass())
        return QStringLiteral("%1 has fallen: it takes no new level until it atones")
            .arg(nameOf(classGuid));
    const DClassInfo* info = DDatabase::GetClassInfoA(classGuid);
    if (!info || info->mClassType != kPrestigeClassType || character.IsClass(classGuid))
        return {};
    if (!DHandBook::HasClassPrereqData(classGuid))
        return QStringLiteral("%1: the rules data holds no entry requirements for this prestige "
                              "class, so a level of it is not taken")
            .arg(info->mName);
    const QStringList failing = DHandBook::GetFailingClassPrereqs(&character, classGuid);
    if (failing.isEmpty())
        return {};
    return QStringLiteral("%1 cannot be taken; requirements not met: %2")
        .arg(info->mName, failing.join(QStringLiteral("; ")));
}

QList<QUuid> DClassEntryRules::ClassesToOffer() {
    QList<QUuid> classes;
    for (const auto& [guid, info] : DDatabase::GetClassInfoMap()) {
        const int type = static_cast<const DClassInfo*>(info)->mClassType;
        if (!guid.isNull() && (type == kBaseClassType || type == kPrestigeClassType))
            classes << guid;
    }
    std::sort(classes.begin(), classes.end(), [](const QUuid& a, const QUuid& b) {
        return nameOf(a).compare(nameOf(b), Qt::CaseInsensitive) < 0;
    });
    return classes;
}
