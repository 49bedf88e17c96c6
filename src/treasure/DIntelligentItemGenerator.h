#pragma once

#include <QStringList>

class DIntelligentData;
class DItem;
class DItemInfo;

// Random minds for magic items: whether an item is intelligent, and its scores, alignment,
// communication, languages, lesser and greater powers and special purpose, from the
// intelligent item tables.
class DIntelligentItemGenerator {
public:
    DIntelligentItemGenerator() = delete;

    // Percent chance that an item of this kind is intelligent (melee weapons most), 0 if none.
    static int GetChanceOfIntelligence(const DItemInfo* info);
    // A percentile roll against that chance; a custom item by its base item.
    static bool ShouldItemBeIntelligent(const DItem* item);
    // A new mind with one reference for the caller; null when a table gives no row.
    static DIntelligentData* GenerateIntelligentData();
    static void GenerateIntelligentAlignment(DIntelligentData* data);
    // The common tongue, and one more language per point of Intelligence bonus.
    static void GenerateIntelligentLanguages(DIntelligentData* data);
    // `abilities` lesser powers and `powers` greater powers, each different (a greater power
    // used some times a day may come again, doubling its uses); an item with greater powers may
    // take a special purpose with its dedicated power in place of one.
    static void GenerateIntelligentAbilitiesAndPowers(DIntelligentData* data, int abilities,
                                                      int powers);

    // The item's ego: its mind's, plus the enhancement bonus and the bonus of the special
    // abilities of a magic weapon, armor or shield. 0 for an item without a mind.
    static int GetItemEgo(const DItem& item);
    // The names of the lesser powers, the greater powers (with their uses), the purpose and
    // the dedicated powers, in that order.
    static QStringList GetPowerNames(const DIntelligentData& data);
    // The alignment's name, empty if it has none.
    static QString GetAlignmentName(const DIntelligentData& data);
};
