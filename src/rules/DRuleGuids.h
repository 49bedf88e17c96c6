#pragma once

#include <QUuid>

// Rule identities the rules engine compares against: rows of "[info Class]" whose GUIDs are
// fixed, so that files and the database agree on them.
namespace DRuleGuids {

inline const QUuid kMonkClass{"{AEF68B92-24C2-4C29-A201-C916A7E2024E}"};
inline const QUuid kPaladinClass{"{369261F4-1D0C-473F-B053-59D862213469}"};
inline const QUuid kBlackguardClass{"{5B843E97-F701-44F4-92F9-CCAB92220BBA}"};
inline const QUuid kRangerClass{"{E1B6DCA8-1F86-4FA7-931F-A6EA20709364}"};
inline const QUuid kRogueClass{"{D6BD23C8-0DC0-4510-91C4-4A4F7126F083}"};
inline const QUuid kBardClass{"{C5CFC8E8-2BA1-490F-AEDB-8142D07B8D22}"};
inline const QUuid kLoremasterClass{"{B2DD6C2B-0750-43FB-8BF1-D349A570E8DF}"};
inline const QUuid kClericClass{"{2F44209F-DA52-4037-83BB-7DDFD24D4CE1}"};
inline const QUuid kWizardClass{"{DC103390-3378-411F-9A3A-CAB0CFD00B68}"};
inline const QUuid kSharedListCasterClass{"{46FBFE80-C7CE-4BEA-B211-CE668C73ED38}"};
inline const QUuid kFastMovementClass{"{BB5836F4-5ACE-4886-8FC7-2FC12DA105A0}"};
inline const QUuid kDevoutClass{"{FBAC04C7-057E-4E2C-AF8F-EC73605904A8}"};
inline const QUuid kDodgeBonusClass{"{9329A6B1-A322-48D7-9A5F-DC8A87654128}"};
inline const QUuid kArcaneBowClass{"{07C8B6F1-8394-4B4A-AB08-0AB2313D88E9}"};

} // namespace DRuleGuids
