#pragma once

#include <QUuid>

// Rule identities the rules engine compares against: rows of the rules database whose GUIDs are
// fixed, so that files and the database agree on them. Built at compile time, so that no
// static constructor runs at start-up.
namespace DRuleGuids {

namespace detail {
constexpr unsigned HexDigit(char c) {
    return c >= '0' && c <= '9'   ? unsigned(c - '0')
           : c >= 'A' && c <= 'F' ? unsigned(c - 'A' + 10)
                                  : unsigned(c - 'a' + 10);
}
constexpr unsigned Hex(const char* text, int from, int count) {
    unsigned value = 0;
    for (int i = 0; i < count; ++i)
        value = value * 16 + HexDigit(text[from + i]);
    return value;
}
} // namespace detail

// "{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}" as a constant.
constexpr QUuid Guid(const char (&text)[39]) {
    using detail::Hex;
    return QUuid(Hex(text, 1, 8), ushort(Hex(text, 10, 4)), ushort(Hex(text, 15, 4)),
                 uchar(Hex(text, 20, 2)), uchar(Hex(text, 22, 2)), uchar(Hex(text, 25, 2)),
                 uchar(Hex(text, 27, 2)), uchar(Hex(text, 29, 2)), uchar(Hex(text, 31, 2)),
                 uchar(Hex(text, 33, 2)), uchar(Hex(text, 35, 2)));
}

// Classes.
inline constexpr QUuid kMonkClass = Guid("{AEF68B92-24C2-4C29-A201-C916A7E2024E}");
inline constexpr QUuid kPaladinClass = Guid("{369261F4-1D0C-473F-B053-59D862213469}");
inline constexpr QUuid kBlackguardClass = Guid("{5B843E97-F701-44F4-92F9-CCAB92220BBA}");
inline constexpr QUuid kRangerClass = Guid("{E1B6DCA8-1F86-4FA7-931F-A6EA20709364}");
inline constexpr QUuid kRogueClass = Guid("{D6BD23C8-0DC0-4510-91C4-4A4F7126F083}");
inline constexpr QUuid kBardClass = Guid("{C5CFC8E8-2BA1-490F-AEDB-8142D07B8D22}");
inline constexpr QUuid kLoremasterClass = Guid("{B2DD6C2B-0750-43FB-8BF1-D349A570E8DF}");
inline constexpr QUuid kClericClass = Guid("{2F44209F-DA52-4037-83BB-7DDFD24D4CE1}");
inline constexpr QUuid kWizardClass = Guid("{DC103390-3378-411F-9A3A-CAB0CFD00B68}");
inline constexpr QUuid kSharedListCasterClass = Guid("{46FBFE80-C7CE-4BEA-B211-CE668C73ED38}");
inline constexpr QUuid kFastMovementClass = Guid("{BB5836F4-5ACE-4886-8FC7-2FC12DA105A0}");
inline constexpr QUuid kDevoutClass = Guid("{FBAC04C7-057E-4E2C-AF8F-EC73605904A8}");
inline constexpr QUuid kDodgeBonusClass = Guid("{9329A6B1-A322-48D7-9A5F-DC8A87654128}");
inline constexpr QUuid kArcaneBowClass = Guid("{07C8B6F1-8394-4B4A-AB08-0AB2313D88E9}");

// Skills and feats.
inline constexpr QUuid kSingleRankSkill = Guid("{ECC06A6C-CE33-4842-BACC-B2F18A9713C3}");
inline constexpr QUuid kSpeakLanguageSkill = Guid("{2B86EDD4-618D-423D-9256-8DFBD3C7D88B}");
inline constexpr QUuid kKnowledgeSkills[] = {
    Guid("{D515ECE3-0A1F-43A8-9485-F43F9EBB1615}"),
    Guid("{0A656CBE-C461-40A0-9397-BDF749DD4F2C}"),
    Guid("{6E07A3D4-248E-4093-A5BF-123B134E39FA}"),
    Guid("{1674856A-9CD3-4F07-B3E0-36EA579269D0}"),
};

inline constexpr QUuid kWeaponTargetFeat = Guid("{684F1421-B863-476A-A3F3-2871910BE259}");
inline constexpr QUuid kSkillTargetFeat = Guid("{97ABBF44-222C-4F8D-8B7E-E1F64703806F}");
inline constexpr QUuid kRangerWaivedFeat = Guid("{787EC485-5504-490A-BBD5-60A2E1A14B77}");
inline constexpr QUuid kLightArmorFeat = Guid("{E581206B-AD49-46A2-8018-784314A1248A}");
inline constexpr QUuid kMediumArmorFeat = Guid("{6B1FCE75-3D26-429F-81F1-80833960C32D}");
inline constexpr QUuid kHeavyArmorFeat = Guid("{044A50A4-4204-4312-92B9-7E212BAADC28}");
inline constexpr QUuid kShieldFeat = Guid("{A4D4790D-A6ED-4FEA-A88E-7BDD46052D99}");
inline constexpr QUuid kSimpleWeaponFeat = Guid("{96903E21-156F-4F3D-92F4-67DA5ED4EE0F}");
inline constexpr QUuid kMartialWeaponFeat = Guid("{09848A9A-458C-47C8-A419-B361F5540611}");
inline constexpr QUuid kExoticWeaponFeat = Guid("{BF016F1C-A08B-4980-9B0C-0A6407AFD18F}");
// The god entry that stands for no particular god: open to all, passes every domain.
inline constexpr QUuid kAnyGod = Guid("{18E7A571-28C3-486F-83D0-9ADDD438C272}");
inline constexpr QUuid kSchoolTargetFeat = Guid("{8580002B-F168-4E1F-ACC1-3A7747BF2821}");

} // namespace DRuleGuids
