#include "DRuleGuids.h"

#include <gtest/gtest.h>

#include <QString>

// The constants are built from their text at compile time; a slip in the digit arithmetic
// would give an identity no file or row carries.
TEST(RuleGuidsTest, CompileTimeGuidsEqualTheirText) {
    const struct {
        QUuid constant;
        const char* text;
    } cases[] = {
        {DRuleGuids::kMonkClass, "{AEF68B92-24C2-4C29-A201-C916A7E2024E}"},
        {DRuleGuids::kWizardClass, "{DC103390-3378-411F-9A3A-CAB0CFD00B68}"},
        {DRuleGuids::kArcaneBowClass, "{07C8B6F1-8394-4B4A-AB08-0AB2313D88E9}"},
        {DRuleGuids::kKnowledgeSkills[3], "{1674856A-9CD3-4F07-B3E0-36EA579269D0}"},
        {DRuleGuids::kSchoolTargetFeat, "{8580002B-F168-4E1F-ACC1-3A7747BF2821}"},
        {DRuleGuids::Guid("{00000000-0000-0000-0000-000000000000}"),
         "{00000000-0000-0000-0000-000000000000}"},
        {DRuleGuids::Guid("{FFFFFFFF-FFFF-FFFF-FFFF-FFFFFFFFFFFF}"),
         "{ffffffff-ffff-ffff-ffff-ffffffffffff}"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.constant, QUuid(QString::fromLatin1(c.text))) << c.text;
    EXPECT_TRUE(DRuleGuids::Guid("{00000000-0000-0000-0000-000000000000}").isNull());
}
