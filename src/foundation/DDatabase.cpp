#include "DDatabase.h"

#include "DAlignmentInfo.h"
#include "DClassInfo.h"
#include "DClassLevelInfo.h"
#include "DCoinInfo.h"
#include "DDamageChangeInfo.h"
#include "DFailureReporter.h"
#include "DFeatInfo.h"
#include "DSchoolInfo.h"
#include "DSimpleInfo.h"
#include "DSizeInfo.h"
#include "DSkillInfo.h"
#include "FCRandom.h"

#include "Connection.h"
#include "DriverManager.h"
#include "Guid.h"
#include "PreparedStatement.h"
#include "ResultSet.h"
#include "SQLException.h"
#include "Statement.h"

#include <QSet>

#include <exception>
#include <map>
#include <memory>
#include <utility>

namespace {

// The registry of table names; code names tables by index only.
constexpr const char* kTableNames[kTableCount] = {
    "[info Coin]",
    "[info Class]",
    "[info Class Skill Usability]",
    "[types Gender]",
    "[types Alignment Flags]",
    "[info Alignment]",
    "[types Alignment Modifiers]",
    "[info Class Alignment Restrictions]",
    "[info Race Subtypes]",
    "[info Size]",
    "[info Size Direction]",
    "[info Size Scale]",
    "[info Skill]",
    "[info Skill Sub]",
    "[info Skill Bonuses Synergy]",
    "[info Skill Bonuses Size]",
    "[info Skill Bonuses Goods]",
    "[info Feat]",
    "[info Feat Prerequisites]",
    "[info Feat Class Prerequisites]",
    "[info Feat Bonuses]",
    "[info Level Gold]",
    "[info Language]",
    "[info Speed]",
    "[types Speed]",
    "[types Dice]",
    "[types Race Attack]",
    "[types Weapon Range]",
    "[types Race Special Attacks]",
    "[types Race Special Quality]",
    "[types Race Special]",
    "[types Race Description]",
    "[types Race Role]",
    "[info Race Size Bonus Hitpoints]",
    "[types Climate]",
    "[info Advancement Damage]",
    "[info Advancement Age]",
    "[info Spell]",
    "[info Spell Level]",
    "[info Spells Per Day]",
    "[info Spells Can Know]",
    "[types Spell Caster]",
    "[Table 7-4 Treasure Coins]",
    "[Table 7-4 Treasure Goods]",
    "[Table 7-4 Treasure Items]",
    "[Table 7-4 Treasure Extra Items]",
    "[info Gem]",
    "[Table 7-5 Gems]",
    "[info Art Objects]",
    "[Table 7-6 Art Objects]",
    "[Table 7-7 Mundane Items]",
    "[Table 7-8 Random Mighty Composite Shortbow]",
    "[Table 7-9 Random Mighty Composite Longbow]",
    "[Table 8-2 Random Magic Items Generation]",
    "[Table 8-3 Armor and Shields]",
    "[Table 8-4 Random Armor Type]",
    "[Table 8-5 Random Shield Type]",
    "[Table 8-6 Armor Special Abilities]",
    "[Table 8-7 Shield Special Abilities]",
    "[Table 8-8 Specific Armors]",
    "[Table 8-9 Specific Shields]",
    "[Table 8-6 and 8-7 Special Abilities]",
    "[Table 8-10 Weapons]",
    "[Table 8-11 Weapon Type Determination]",
    "[Table 8-12 Common Melee Weapons]",
    "[Table 8-13 Uncommon Weapons]",
    "[Table 8-14 Common Ranged Weapons]",
    "[Table 8-14 Common Ranged Weapons Sub]",
    "[Table 8-15 Melee Weapon Special Abilities]",
    "[Table 8-16 Ranged Weapon Special Abilities]",
    "[Table 8-17 Specific Weapons]",
    "[Table 8-15 and 8-16 Special Abilities]",
    "[Table ZKB186 Designated Foe]",
    "[info Potions]",
    "[Table 8-18 Potions]",
    "[info Rings]",
    "[Table 8-19 Rings]",
    "[info Rods]",
    "[Table 8-20 Rods]",
    "[Table 8-21 Scroll Types]",
    "[Table 8-22 Number of Spells on a Scroll]",
    "[Table 8-23 Scroll Spell Level]",
    "[Table 8-24 Arcane Spell Scrolls]",
    "[Table 8-25 Divine Spell Scrolls]",
    "[info Staffs]",
    "[Table 8-26 Staffs]",
    "[Table 8-27 Wands]",
    "[info Wondrous Items]",
    "[info Wondrous Items Sub]",
    "[Table 8-28 Minor Wondrous Items]",
    "[Table 8-29 Medium Wondrous Items]",
    "[Table 8-30 Major Wondrous Items]",
    "[types Intelligent Communication]",
    "[types Intelligent Categories]",
    "[Table 8-31 Item]",
    "[Table 8-32 Item Alignment]",
    "[Table 8-33 Intelligent Item Primary Abilities]",
    "[Table 8-34 Intelligent Item Extraordinary Powers]",
    "[Table 8-35 Intelligent Item Purposes]",
    "[Table 8-36 Intelligent Item Special Purpose Powers]",
    "[Text ZKB228 Item Randomly Intelligent]",
    "[types Intelligent Item Abilities]",
    "[types Intelligent Item Extraordinary Powers]",
    "[types Intelligent Item Purposes]",
    "[types Intelligent Item Special Purpose Powers]",
    "[Table 8-38 Cursed Item Common Curses]",
    "[Table 8-39 Specific Cursed Items]",
    "[types Curses]",
    "[types Curses Intermittent]",
    "[types Curses Requirement]",
    "[types Curses Dependent]",
    "[types Curses Drawback]",
    "[types Curses Completely Different]",
    "[Text ZKB231 Curses Intermittent]",
    "[Table ZKB231 Situation]",
    "[Table ZKB232 Drawback]",
    "[Text ZKB231 Item Randomly Cursed]",
    "[types Humanoid]",
    "[info Weapons]",
    "[info Armor]",
    "[info Shield]",
    "[info Goods]",
    "[info Masterwork Costs]",
    "[types Frequency]",
    "[types Treasure Groups]",
    "[types Inventory Groups]",
    "[types Item]",
    "[types Magic Item]",
    "[types Magic Item Sub]",
    "[types Item Generator]",
    "[types Magic Generator]",
    "[types Magic Item Quality]",
    "[types Spell Level Selections]",
    "[types Creature Treasure]",
    "[types Inventory Item]",
    "[types Inventory Magic Item]",
    "[types Goods]",
    "[types Equip Item]",
    "[types Weapon Range Item]",
    "[types Weapon Use Item]",
    "[types Character Editor Frames]",
    "[types Character Features]",
    "[info God]",
    "[info Domain]",
    "[info Domain Skill]",
    "[info God Domain]",
    "[info God Domain Feat]",
    "[info Spell Schools]",
    "[types School Prohibited Selections]",
    "[types School Domain Selections]",
    "[types Companion]",
    "[info Familiar]",
    "[info Mount]",
    "[info Fiendish]",
    "[info Familiar Features]",
    "[info Mount Features]",
    "[info Fiendish Features]",
    "[types Familiar Bonus]",
    "[types Roll Methods]",
    "[types Roll Campaigns]",
    "[types Abilities]",
    "[info Armor Bonuses]",
    "[info Armor Shield Special Bonuses]",
    "[info Weapon Bonuses]",
    "[info Weapon Bonuses Damage]",
    "[info Weapon Bonuses Special]",
    "[info Ring Bonuses]",
    "[info Rod Bonuses]",
    "[info Staff Bonuses]",
    "[info Wondrous Bonuses]",
    "[info Intelligent Abilities Bonuses]",
    "[info Intelligent Purpose Powers Bonuses]",
    "[info Load]",
    "[info Load Capacity]",
    "[info Class Weapon Proficiency]",
    "[info Class Features]",
    "[info Class Requirements]",
    "[info Class Bonus Feats]",
    "[info Features]",
    "[info Monk Unarmed Damage]",
    "[info Monk Unarmored Speed]",
    "[info Loremaster Secrets]",
    "[info Fallen Paladin Features]",
    "[info Ranger Favored Enemy]",
    "[info Bard Weapon Proficiency]",
    "[types Race Category]",
    "[types Race Family]",
    "[Table 6-4 KT Random Starting Ages]",
    "[types Feat]",
    "[types Feat Stacking]",
    "[types Feat Target]",
    "[types Feat Requirement]",
    "[types House Rule Frames]",
    "[types Time]",
    "[types Spell Range]",
    "[types Spell Duration]",
    "[types Spell Save]",
    "[types Spell Resistance]",
    "[types Spell Descriptors]",
    "[types Weapon Proficiency]",
    "[types Strength Bonus]",
    "[types Weapon]",
    "[types Weapon Use]",
    "[types Weight]",
    "[Table ZKB228 Random Intelligent Scores]",
    "[info Die Quick Buttons]",
    "[types Set]",
    "[types Capacity Unit]",
    "[types Masterwork]",
    "[types Spell Component Flags]",
    "[types Skill Usability]",
    "[types Table Element]"};

// Tables behind the eight helper maps, in helper order.
constexpr int kHelperTables[DDatabase::kHelperCount] = {193, 194, 195, 196, 27, 201, 203, 188};

// Table of each item type 0..18; -1 where a type has no rows of its own.
constexpr int kItemTypeTables[] = {118, 119, 120, 121, -1, 73, 75, 77, -1, 84,
                                   -1,  87,  0,   -1,  48, 46, -1, -1, -1};

// Statement texts, kept together so that one test can run them all.
constexpr const char* kSelectAll = "SELECT * FROM %s";
constexpr const char* kInfoById = "SELECT * FROM %s WHERE (ID=%d)";
constexpr const char* kInfoByIdSub = "SELECT * FROM %s WHERE (ID=%d) AND (SUBID=%d)";
constexpr const char* kInfoByGuid = "SELECT * FROM %s WHERE (Guid=%s)";
constexpr const char* kInfoByGuidSub = "SELECT * FROM %s WHERE (Guid=%s) AND (SubGuid=%s)";
constexpr const char* kInfoByGuidIdSub = "SELECT * FROM %s WHERE (Id=%s) AND (SubId=%d)";
constexpr const char* kSpellLevelByClass = "SELECT * FROM %s WHERE (ID=%s) AND (CLASSID=%s)";
constexpr const char* kFamiliarByLevel =
    "SELECT * FROM %s WHERE (%d>=MasterLevelMin) AND (%d<=MasterLevelMax)";
constexpr const char* kGuidById = "SELECT Guid FROM %s WHERE (ID=%d)";
constexpr const char* kSubGuidById = "SELECT SubGuid FROM %s WHERE (ID=%d) AND (SUBID=%d)";
constexpr const char* kHelpById = "SELECT HelpText FROM %s WHERE (ID=%d)";
constexpr const char* kHelpByIdSub = "SELECT HelpText FROM %s WHERE (ID=%d) AND (SUBID=%d)";
constexpr const char* kHelpByGuid = "SELECT HelpText FROM %s WHERE (Guid=%s)";
constexpr const char* kHelpByGuidSub = "SELECT HelpText FROM %s WHERE (Guid=%s) AND (SubGuid=%s)";
constexpr const char* kHelpIndexByGuid = "SELECT HelpIndex FROM %s WHERE (Guid=%s)";
constexpr const char* kHelpIndexByGuidSub =
    "SELECT HelpIndex FROM %s WHERE (Guid=%s) AND (SubGuid=%s)";
constexpr const char* kRecordCount = "SELECT COUNT(*) AS RecordCount FROM %s";
constexpr const char* kSpellSchool = "SELECT SchoolId FROM %s WHERE (Guid=%s)";
constexpr const char* kAllGuids = "SELECT Guid FROM %s";
constexpr const char* kSpellsForClassLevel =
    "SELECT [Guid], Name, %s.Level FROM %s INNER JOIN %s ON %s.[Guid] = %s.[Id] WHERE "
    "(%s.[ClassId] = ?) AND (%s.[Level] = ?)";
constexpr const char* kSpellsForClass =
    "SELECT [Guid], Name, %s.[Level] FROM %s INNER JOIN %s ON %s.[Guid] = %s.[Id] WHERE "
    "(%s.[ClassId] = ?)";
constexpr const char* kSpellsDetailedForClassLevel =
    "SELECT [Guid], Name, CastTime, TimeType, Range, Duration, Save, SchoolId FROM %s INNER JOIN "
    "%s ON %s.[Guid] = %s.[Id] WHERE (%s.[ClassId] = ?) AND (%s.[Level] = ?) ORDER BY Name";
constexpr const char* kSpellsDetailedForDomainLevel =
    "SELECT [Guid], Name, CastTime, TimeType, Range, Duration, Save FROM %s INNER JOIN %s ON "
    "%s.[Guid] = %s.[Id] WHERE (%s.[DomainId] = ?) AND (%s.[Level] = ?) ORDER BY Name";
constexpr const char* kSpellInfo = "SELECT Id, Name FROM %s WHERE (Id = ?)";

QByteArray tableName(int index) {
    return DDatabase::GetTableName(index).toLatin1();
}

QByteArray guidLiteral(const QUuid& guid) {
    return odbc::toStringODBC(guid).toLatin1();
}

void reportQueryFailure(const std::exception& error) {
    DFailureReporter::Report(QStringLiteral("Query failed"), QString::fromUtf8(error.what()));
}

// Hands the rows of `sql` to `onRow`, only the first one if `firstOnly`; a failure is
// reported once. With `firstOnly` the result tells whether there was a row, otherwise whether
// the query ran.
bool walkRows(odbc::Connection* connection, const QString& sql,
              const std::function<void(odbc::ResultSet*)>& onRow, bool firstOnly) {
    if (!connection)
        return false;
    try {
        std::unique_ptr<odbc::Statement> statement(connection->createStatement());
        odbc::ResultSet* rows = statement->executeQuery(sql);
        bool found = false;
        while (rows && rows->next()) {
            onRow(rows);
            found = true;
            if (firstOnly)
                break;
        }
        return firstOnly ? found : true;
    } catch (const std::exception& error) {
        reportQueryFailure(error);
    }
    return false;
}

} // namespace

bool DDatabase::ForEachRow(const QString& sql, const std::function<void(odbc::ResultSet*)>& onRow) {
    return walkRows(mConnection, sql, onRow, false);
}

bool DDatabase::FirstRow(const QString& sql, const std::function<void(odbc::ResultSet*)>& onRow) {
    return walkRows(mConnection, sql, onRow, true);
}

struct DDatabase::ColumnGuids {
    std::map<std::pair<int, QByteArray>, QSet<QUuid>> byColumn;
};

std::unique_ptr<DDatabase::ColumnGuids> DDatabase::mColumnGuids;

bool DDatabase::ColumnHoldsGuid(int table, const char* column, const QUuid& guid) {
    if (!mColumnGuids)
        mColumnGuids = std::make_unique<ColumnGuids>();
    const std::pair<int, QByteArray> key(table, QByteArray(column));
    auto found = mColumnGuids->byColumn.find(key);
    if (found == mColumnGuids->byColumn.end()) {
        QSet<QUuid> guids;
        ForEachRow(
            QString::asprintf("SELECT DISTINCT %s FROM %s", column, tableName(table).constData()),
            [&guids](odbc::ResultSet* row) { guids.insert(row->getGUID(1)); });
        found = mColumnGuids->byColumn.emplace(key, std::move(guids)).first;
    }
    return found->second.contains(guid);
}

FCString DDatabase::mDatabasePath;
odbc::Connection* DDatabase::mConnection = nullptr;
bool DDatabase::mHasPreloaded = false;
FCObject* DDatabase::mItemCollection = nullptr;
FCPointerMap<QUuid, DInfo> DDatabase::mClassInfoMap;
FCPointerMap<int, DInfo> DDatabase::mAlignmentInfoMap;
FCPointerMap<int, DInfo> DDatabase::mSizeInfoMap;
FCPointerMap<int, DInfo> DDatabase::mClassLevelInfoMap;
FCPointerMap<QUuid, DInfo> DDatabase::mSkillInfoMap;
FCPointerMap<QUuid, DInfo> DDatabase::mFeatInfoMap;
FCPointerMap<int, DInfo> DDatabase::mCoinInfoMap;
FCPointerMap<int, DInfo> DDatabase::mSchoolInfoMap;
FCPointerMap<int, DInfo> DDatabase::mDamageChangeInfoMap;
FCPointerMap<QUuid, DInfo> DDatabase::mWeaponInfoMap;
FCPointerMap<QUuid, DInfo> DDatabase::mArmorInfoMap;
FCPointerMap<QUuid, DInfo> DDatabase::mShieldInfoMap;
FCPointerMap<QUuid, DInfo> DDatabase::mGoodsInfoMap;
FCPointerMap<int, DInfo> DDatabase::mMasterworkCostInfoMap;
FCPointerMap<QUuid, DInfo> DDatabase::mWondrousInfoMap;
std::array<FCPointerMap<int, DInfo>, DDatabase::kHelperCount> DDatabase::mHelperTableInfoMap;
odbc::PreparedStatement* DDatabase::mGetSpellsForClassLevelStmt = nullptr;
odbc::PreparedStatement* DDatabase::mGetSpellsForClassStmt = nullptr;
odbc::PreparedStatement* DDatabase::mGetSpellsDetailedForClassLevelStmt = nullptr;
odbc::PreparedStatement* DDatabase::mGetSpellsDetailedForDomainLevelStmt = nullptr;
odbc::PreparedStatement* DDatabase::mGetSpellInfoStmt = nullptr;

bool DDatabase::StartUp(const FCString& path) {
    SetPath(path);
    // The connection text is the host's: a path or sqlite: opens SQLite, odbc: and
    // postgresql:// reach other engines.
    try {
        mConnection = odbc::DriverManager::getConnection(path);
    } catch (const odbc::SQLException& error) {
        DFailureReporter::Report(QStringLiteral("Connect failed."), error.getMessage());
        mConnection = nullptr;
    }
    // SQLite opens any file lazily: a truncated or foreign file, or one of another schema,
    // would otherwise connect and then fail every query that follows.
    const QString schemaFault = mConnection ? FindSchemaFault() : QString();
    if (!schemaFault.isEmpty()) {
        DFailureReporter::Report(QStringLiteral("Connect failed."), schemaFault);
        delete mConnection;
        mConnection = nullptr;
    }
    PreloadIfNeeded();
    if (!mItemCollection)
        mItemCollection = FCCreateDynamicObject("DItemCollection");
    return mConnection != nullptr;
}

std::vector<int> DDatabase::GetRequiredTables() {
    // The tables the rule maps are read from: without them no character can be computed.
    std::vector<int> tables = {
        kTableClass, kTableAlignment, kTableSize,         kTableLevelGold,         kTableSkill,
        kTableFeat,  kTableCoin,      kTableSpellSchools, kTableAdvancementDamage, kTableWeapons,
        kTableArmor, kTableShield,    kTableGoods,        kTableMasterworkCosts};
    tables.insert(tables.end(), std::begin(kHelperTables), std::end(kHelperTables));
    return tables;
}

QString DDatabase::FindSchemaFault() {
    for (const int table : GetRequiredTables()) {
        const QByteArray name = GetTableName(table).toLatin1();
        try {
            std::unique_ptr<odbc::Statement> statement(mConnection->createStatement());
            statement->executeQuery(
                QString::asprintf("SELECT * FROM %s WHERE 1=0", name.constData()));
        } catch (const std::exception& error) {
            return QStringLiteral("%1 is not a rules database: the table %2 cannot be read (%3)")
                .arg(mDatabasePath, QString::fromLatin1(name), QString::fromUtf8(error.what()));
        }
    }
    return QString();
}

void DDatabase::ShutDown() {
    for (odbc::PreparedStatement** statement :
         {&mGetSpellsForClassLevelStmt, &mGetSpellsForClassStmt,
          &mGetSpellsDetailedForClassLevelStmt, &mGetSpellsDetailedForDomainLevelStmt,
          &mGetSpellInfoStmt}) {
        delete *statement;
        *statement = nullptr;
    }
    if (mItemCollection) {
        mItemCollection->Release();
        mItemCollection = nullptr;
    }
    mColumnGuids.reset();
    delete mConnection;
    mConnection = nullptr;
}

bool DDatabase::SetPath(const FCString& path) {
    mDatabasePath = path;
    return true;
}

void DDatabase::PreloadIfNeeded() {
    if (mHasPreloaded)
        return;
    LoadGuidObjectPtrMapODBC(GetTableName(kTableClass), "DClassInfo", mClassInfoMap);
    LoadObjectPtrMapODBC(GetTableName(kTableAlignment), "DAlignmentInfo", mAlignmentInfoMap);
    LoadObjectPtrMapODBC(GetTableName(kTableSize), "DSizeInfo", mSizeInfoMap);
    LoadObjectPtrMapODBC(GetTableName(kTableLevelGold), "DClassLevelInfo", mClassLevelInfoMap);
    LoadGuidObjectPtrMapODBC(GetTableName(kTableSkill), "DSkillInfo", mSkillInfoMap);
    LoadGuidObjectPtrMapODBC(GetTableName(kTableFeat), "DFeatInfo", mFeatInfoMap);
    LoadObjectPtrMapODBC(GetTableName(kTableCoin), "DCoinInfo", mCoinInfoMap);
    LoadObjectPtrMapODBC(GetTableName(kTableSpellSchools), "DSchoolInfo", mSchoolInfoMap);
    LoadObjectPtrMapODBC(GetTableName(kTableAdvancementDamage), "DDamageChangeInfo",
                         mDamageChangeInfoMap);
    LoadGuidObjectPtrMapODBC(GetTableName(kTableWeapons), "DWeaponInfo", mWeaponInfoMap);
    LoadGuidObjectPtrMapODBC(GetTableName(kTableArmor), "DArmorInfo", mArmorInfoMap);
    LoadGuidObjectPtrMapODBC(GetTableName(kTableShield), "DShieldInfo", mShieldInfoMap);
    LoadGuidObjectPtrMapODBC(GetTableName(kTableGoods), "DGoodsInfo", mGoodsInfoMap);
    mWondrousInfoMap.SetOwnership(kFCRetained);
    LoadObjectPtrMapODBC(GetTableName(kTableMasterworkCosts), "DSpecialCostInfo",
                         mMasterworkCostInfoMap);
    for (int helper = 0; helper < kHelperCount; ++helper)
        LoadObjectPtrMapODBC(GetTableName(kHelperTables[helper]), "DSimpleInfo",
                             mHelperTableInfoMap[size_t(helper)]);
    mHasPreloaded = true;
}

const FCString& DDatabase::GetTableName(int index) {
    static const auto names = [] {
        std::array<FCString, kTableCount> result;
        for (int i = 0; i < kTableCount; ++i)
            result[size_t(i)] = FCString(QLatin1String(kTableNames[i]));
        return result;
    }();
    static const FCString none;
    return index >= 0 && index < kTableCount ? names[size_t(index)] : none;
}

int DDatabase::GetItemTypeTableId(int itemType) {
    constexpr int count = int(sizeof(kItemTypeTables) / sizeof(kItemTypeTables[0]));
    return itemType >= 0 && itemType < count ? kItemTypeTables[itemType] : -1;
}

template <typename K>
static void loadMap(odbc::Connection* connection, const FCString& tableName, const char* className,
                    FCPointerMap<K, DInfo>& map, K (*keyOf)(const DInfo&),
                    bool (*valid)(const K&)) {
    map.SetOwnership(kFCRetained);
    if (!connection)
        return;
    try {
        std::unique_ptr<odbc::Statement> statement(connection->createStatement());
        odbc::ResultSet* rows = statement->executeQuery(
            QString::asprintf(kSelectAll, tableName.toLatin1().constData()));
        while (rows && rows->next()) {
            auto* record = static_cast<DInfo*>(FCCreateDynamicObject(className));
            if (!record)
                return;
            // The record is released on every path, so a throwing SetData leaks nothing.
            std::unique_ptr<DInfo, void (*)(DInfo*)> owner(record,
                                                           [](DInfo* info) { info->Release(); });
            record->SetData(rows);
            const K key = keyOf(*record);
            if (valid(key))
                map.SetAt(key, record);
        }
    } catch (const std::exception& error) {
        reportQueryFailure(error);
    }
}

void DDatabase::LoadObjectPtrMapODBC(const FCString& tableName, const char* className,
                                     FCPointerMap<int, DInfo>& map) {
    loadMap<int>(
        mConnection, tableName, className, map,
        [](const DInfo& info) { return info.GetPrimaryKey(); },
        [](const int& key) { return key >= 0; });
}

void DDatabase::LoadGuidObjectPtrMapODBC(const FCString& tableName, const char* className,
                                         FCPointerMap<QUuid, DInfo>& map) {
    loadMap<QUuid>(
        mConnection, tableName, className, map,
        [](const DInfo& info) { return info.GetPrimaryKeyGuid(); },
        [](const QUuid& key) { return !key.isNull(); });
}

template <typename Record, typename K>
static Record* lookup(const FCPointerMap<K, DInfo>& map, const K& key) {
    return static_cast<Record*>(map.Lookup(key));
}

DClassInfo* DDatabase::GetClassInfoA(const QUuid& guid) {
    return lookup<DClassInfo>(mClassInfoMap, guid);
}
DAlignmentInfo* DDatabase::GetAlignmentInfo(int id) {
    return lookup<DAlignmentInfo>(mAlignmentInfoMap, id);
}
DSizeInfo* DDatabase::GetSizeInfo(int id) {
    return lookup<DSizeInfo>(mSizeInfoMap, id);
}
DClassLevelInfo* DDatabase::GetClassLevelInfo(int level) {
    return lookup<DClassLevelInfo>(mClassLevelInfoMap, level);
}
DSkillInfo* DDatabase::GetSkillInfo(const QUuid& guid) {
    return lookup<DSkillInfo>(mSkillInfoMap, guid);
}
DFeatInfo* DDatabase::GetFeatInfo(const QUuid& guid) {
    return lookup<DFeatInfo>(mFeatInfoMap, guid);
}
DCoinInfo* DDatabase::GetCoinInfo(int id) {
    return lookup<DCoinInfo>(mCoinInfoMap, id);
}
DSchoolInfo* DDatabase::GetSchoolInfo(int id) {
    return lookup<DSchoolInfo>(mSchoolInfoMap, id);
}
DDamageChangeInfo* DDatabase::GetDamageChangeInfo(int id) {
    return lookup<DDamageChangeInfo>(mDamageChangeInfoMap, id);
}
DInfo* DDatabase::GetWeaponInfo(const QUuid& guid) {
    return LookupOrQuery(mWeaponInfoMap, kTableWeapons, "DWeaponInfo", guid);
}
DInfo* DDatabase::GetArmorInfo(const QUuid& guid) {
    return mArmorInfoMap.Lookup(guid);
}
DInfo* DDatabase::GetShieldInfo(const QUuid& guid) {
    return mShieldInfoMap.Lookup(guid);
}
DInfo* DDatabase::GetGoodsInfo(const QUuid& guid) {
    return mGoodsInfoMap.Lookup(guid);
}
DInfo* DDatabase::GetMasterworkCostInfo(int id) {
    return mMasterworkCostInfoMap.Lookup(id);
}
DInfo* DDatabase::GetWondrousInfo(const QUuid& guid) {
    return LookupOrQuery(mWondrousInfoMap, kTableWondrousItems, "DWondrousInfo", guid);
}

DSimpleInfo* DDatabase::GetHelperInfo(int helper, int id) {
    if (helper < 0 || helper >= kHelperCount)
        return nullptr;
    return lookup<DSimpleInfo>(mHelperTableInfoMap[size_t(helper)], id);
}

const FCPointerMap<int, DInfo>& DDatabase::GetHelperInfoMap(int helper) {
    return mHelperTableInfoMap[size_t(qBound(0, helper, kHelperCount - 1))];
}

DInfo* DDatabase::LookupOrQuery(FCPointerMap<QUuid, DInfo>& map, int table, const char* className,
                                const QUuid& guid) {
    if (DInfo* known = map.Lookup(guid))
        return known;
    auto* record = static_cast<DInfo*>(FCCreateDynamicObject(className));
    if (!record)
        return nullptr;
    DInfo* result = nullptr;
    if (GetInfo(table, guid, record)) {
        map.SetAt(guid, record);
        result = record;
    }
    record->Release();
    return result;
}

bool DDatabase::QueryInfo(const QString& sql, DInfo* info) {
    return FirstRow(sql, [info](odbc::ResultSet* row) {
        if (info)
            info->SetData(row);
    });
}

bool DDatabase::GetInfo(int table, int id, DInfo* info) {
    return QueryInfo(QString::asprintf(kInfoById, tableName(table).constData(), id), info);
}

bool DDatabase::GetInfo(int table, int id, int subId, DInfo* info) {
    return QueryInfo(QString::asprintf(kInfoByIdSub, tableName(table).constData(), id, subId),
                     info);
}

bool DDatabase::GetInfo(int table, const QUuid& guid, DInfo* info) {
    return QueryInfo(
        QString::asprintf(kInfoByGuid, tableName(table).constData(), guidLiteral(guid).constData()),
        info);
}

bool DDatabase::GetInfo(int table, const QUuid& guid, const QUuid& subGuid, DInfo* info) {
    return QueryInfo(QString::asprintf(kInfoByGuidSub, tableName(table).constData(),
                                       guidLiteral(guid).constData(),
                                       guidLiteral(subGuid).constData()),
                     info);
}

bool DDatabase::GetInfo(int table, const QUuid& id, int subId, DInfo* info) {
    return QueryInfo(QString::asprintf(kInfoByGuidIdSub, tableName(table).constData(),
                                       guidLiteral(id).constData(), subId),
                     info);
}

bool DDatabase::GetSpellsPerDayInfo(const QUuid& classId, int level, DInfo* info) {
    return GetInfo(kTableSpellsPerDay, classId, level, info);
}

bool DDatabase::GetSpellLevelInfoWithClass(const QUuid& spell, const QUuid& classId, DInfo* info) {
    const QString sql =
        QString::asprintf(kSpellLevelByClass, tableName(kTableSpellLevel).constData(),
                          guidLiteral(spell).constData(), guidLiteral(classId).constData());
    if (QueryInfo(sql, info))
        return true;
    // The Wizard has no list of its own: it casts from the shared arcane list.
    if (classId == kWizardClassGuid)
        return GetSpellLevelInfoWithClass(spell, kSharedWizardListClassGuid, info);
    return false;
}

bool DDatabase::GetFamiliarMountInfo(int masterLevel, int kind, DInfo* info) {
    if (kind < 0 || kind > 2)
        return false;
    const int table = kTableFamiliar + kind;
    return QueryInfo(
        QString::asprintf(kFamiliarByLevel, tableName(table).constData(), masterLevel, masterLevel),
        info);
}

QUuid DDatabase::GetGuid(int table, int id) {
    QUuid result;
    FirstRow(QString::asprintf(kGuidById, tableName(table).constData(), id),
             [&](odbc::ResultSet* row) { result = row->getGUID(QStringLiteral("Guid")); });
    return result;
}

QUuid DDatabase::GetSubGuid(int table, int id, int subId) {
    QUuid result;
    FirstRow(QString::asprintf(kSubGuidById, tableName(table).constData(), id, subId),
             [&](odbc::ResultSet* row) { result = row->getGUID(QStringLiteral("SubGuid")); });
    return result;
}

static bool readHelpText(const QString& sql, FCString& out) {
    return DDatabase::FirstRow(sql, [&](odbc::ResultSet* row) {
        out = FCString(row->getString(QStringLiteral("HelpText")));
    });
}

bool DDatabase::GetHelpText(int table, int id, FCString& out) {
    return readHelpText(QString::asprintf(kHelpById, tableName(table).constData(), id), out);
}

bool DDatabase::GetHelpText(int table, int id, int subId, FCString& out) {
    return readHelpText(QString::asprintf(kHelpByIdSub, tableName(table).constData(), id, subId),
                        out);
}

bool DDatabase::GetHelpText(int table, const QUuid& guid, FCString& out) {
    return readHelpText(
        QString::asprintf(kHelpByGuid, tableName(table).constData(), guidLiteral(guid).constData()),
        out);
}

bool DDatabase::GetHelpText(int table, const QUuid& guid, const QUuid& subGuid, FCString& out) {
    return readHelpText(QString::asprintf(kHelpByGuidSub, tableName(table).constData(),
                                          guidLiteral(guid).constData(),
                                          guidLiteral(subGuid).constData()),
                        out);
}

static int readInt(const QString& sql, const QString& column, int fallback) {
    int result = fallback;
    DDatabase::FirstRow(sql, [&](odbc::ResultSet* row) { result = row->getInt(column); });
    return result;
}

int DDatabase::GetHelpIndex(int table, const QUuid& guid) {
    return readInt(QString::asprintf(kHelpIndexByGuid, tableName(table).constData(),
                                     guidLiteral(guid).constData()),
                   QStringLiteral("HelpIndex"), -1);
}

int DDatabase::GetHelpIndex(int table, const QUuid& guid, const QUuid& subGuid) {
    return readInt(QString::asprintf(kHelpIndexByGuidSub, tableName(table).constData(),
                                     guidLiteral(guid).constData(),
                                     guidLiteral(subGuid).constData()),
                   QStringLiteral("HelpIndex"), -1);
}

int DDatabase::GetRecordCount(int table) {
    return readInt(QString::asprintf(kRecordCount, tableName(table).constData()),
                   QStringLiteral("RecordCount"), 0);
}

int DDatabase::ProbeRecordCount(int table) {
    if (!mConnection || table < 0 || table >= kTableCount)
        return -1;
    try {
        std::unique_ptr<odbc::Statement> statement(mConnection->createStatement());
        odbc::ResultSet* rows =
            statement->executeQuery(QString::asprintf(kRecordCount, tableName(table).constData()));
        return rows && rows->next() ? rows->getInt(QStringLiteral("RecordCount")) : -1;
    } catch (const std::exception&) {
        return -1;
    }
}

int DDatabase::GetSpellSchool(const QUuid& spell) {
    return readInt(QString::asprintf(kSpellSchool, tableName(kTableSpell).constData(),
                                     guidLiteral(spell).constData()),
                   QStringLiteral("SchoolId"), -1);
}

int DDatabase::GetSpecialAttackType(int id) {
    return readInt(
        QString::asprintf(kInfoById, tableName(kTableRaceSpecialAttacks).constData(), id),
        QStringLiteral("Type"), 0);
}

QUuid DDatabase::PickRandomGuidFromTable(int table) {
    const int count = GetRecordCount(table);
    if (count <= 0 || !mConnection)
        return QUuid();
    QUuid result;
    try {
        std::unique_ptr<odbc::Statement> statement(mConnection->createStatement(
            odbc::ResultSet::TYPE_SCROLL_INSENSITIVE, odbc::ResultSet::CONCUR_READ_ONLY));
        odbc::ResultSet* rows =
            statement->executeQuery(QString::asprintf(kAllGuids, tableName(table).constData()));
        if (rows && rows->absolute(FC::GetRandom(1, count + 1)))
            result = rows->getGUID(QStringLiteral("Guid"));
    } catch (const std::exception& error) {
        reportQueryFailure(error);
    }
    return result;
}

odbc::PreparedStatement* DDatabase::Prepare(odbc::PreparedStatement*& member, const QString& sql) {
    if (member || !mConnection)
        return member;
    try {
        member = mConnection->prepareStatement(sql);
    } catch (const std::exception& error) {
        reportQueryFailure(error);
    }
    return member;
}

odbc::PreparedStatement* DDatabase::GetSpellsForClassLevelStmt() {
    const QByteArray spell = tableName(kTableSpell), level = tableName(kTableSpellLevel);
    return Prepare(mGetSpellsForClassLevelStmt,
                   QString::asprintf(kSpellsForClassLevel, level.constData(), spell.constData(),
                                     level.constData(), spell.constData(), level.constData(),
                                     level.constData(), level.constData()));
}

odbc::PreparedStatement* DDatabase::GetSpellsForClassStmt() {
    const QByteArray spell = tableName(kTableSpell), level = tableName(kTableSpellLevel);
    return Prepare(mGetSpellsForClassStmt,
                   QString::asprintf(kSpellsForClass, level.constData(), spell.constData(),
                                     level.constData(), spell.constData(), level.constData(),
                                     level.constData()));
}

odbc::PreparedStatement* DDatabase::GetSpellsDetailedForClassLevelStmt() {
    const QByteArray spell = tableName(kTableSpell), level = tableName(kTableSpellLevel);
    return Prepare(mGetSpellsDetailedForClassLevelStmt,
                   QString::asprintf(kSpellsDetailedForClassLevel, spell.constData(),
                                     level.constData(), spell.constData(), level.constData(),
                                     level.constData(), level.constData()));
}

odbc::PreparedStatement* DDatabase::GetSpellsDetailedForDomainLevelStmt() {
    const QByteArray spell = tableName(kTableSpell), level = tableName(kTableSpellLevel);
    return Prepare(mGetSpellsDetailedForDomainLevelStmt,
                   QString::asprintf(kSpellsDetailedForDomainLevel, spell.constData(),
                                     level.constData(), spell.constData(), level.constData(),
                                     level.constData(), level.constData()));
}

odbc::PreparedStatement* DDatabase::GetSpellInfoStmt() {
    return Prepare(mGetSpellInfoStmt,
                   QString::asprintf(kSpellInfo, tableName(kTableSpell).constData()));
}

QStringList DDatabase::GetStatementSamples() {
    const QUuid guid = kWizardClassGuid;
    const QByteArray g = guidLiteral(guid);
    const QByteArray spell = tableName(kTableSpell), level = tableName(kTableSpellLevel);
    QStringList samples;
    for (int table : std::initializer_list<int>{kTableClass,
                                                kTableAlignment,
                                                kTableSize,
                                                kTableLevelGold,
                                                kTableSkill,
                                                kTableFeat,
                                                kTableCoin,
                                                kTableSpellSchools,
                                                kTableAdvancementDamage,
                                                kTableWeapons,
                                                kTableArmor,
                                                kTableShield,
                                                kTableGoods,
                                                kTableMasterworkCosts,
                                                193,
                                                194,
                                                195,
                                                196,
                                                27,
                                                201,
                                                203,
                                                188})
        samples << QString::asprintf(kSelectAll, tableName(table).constData());
    samples << QString::asprintf(kInfoById, tableName(kTableSize).constData(), 1)
            << QString::asprintf(kInfoByIdSub, tableName(11).constData(), 1, 1)
            << QString::asprintf(kInfoByGuid, tableName(kTableFeatures).constData(), g.constData())
            << QString::asprintf(kInfoByGuidSub, tableName(kTableSkillSub).constData(),
                                 g.constData(), g.constData())
            << QString::asprintf(kInfoByGuidIdSub, tableName(kTableSpellsPerDay).constData(),
                                 g.constData(), 1)
            << QString::asprintf(kInfoByGuidIdSub, tableName(kTableSpellsCanKnow).constData(),
                                 g.constData(), 1)
            << QString::asprintf(kSpellLevelByClass, level.constData(), g.constData(),
                                 g.constData());
    for (int table : std::initializer_list<int>{kTableFamiliar, kTableMount, kTableFiendish})
        samples << QString::asprintf(kFamiliarByLevel, tableName(table).constData(), 5, 5);
    // GetSubGuid has no table of ours that carries both an integer pair and a SubGuid, so
    // its statement is not sampled.
    samples << QString::asprintf(kGuidById, tableName(kTableClass).constData(), 1);
    for (int table : std::initializer_list<int>{
             kTableSkill, kTableFeat, kTableLanguage, kTableSpell, kTableGod, kTableDomain,
             kTableFeatures, 73, 75, 77, 84, 87, 118, 119, 120, 121}) {
        samples << QString::asprintf(kHelpByGuid, tableName(table).constData(), g.constData())
                << QString::asprintf(kHelpIndexByGuid, tableName(table).constData(), g.constData());
    }
    samples << QString::asprintf(kHelpByGuidSub, tableName(kTableSkillSub).constData(),
                                 g.constData(), g.constData())
            << QString::asprintf(kHelpIndexByGuidSub, tableName(kTableSkillSub).constData(),
                                 g.constData(), g.constData())
            << QString::asprintf(kRecordCount, tableName(kTableClass).constData())
            << QString::asprintf(kSpellSchool, spell.constData(), g.constData())
            << QString::asprintf(kInfoById, tableName(kTableRaceSpecialAttacks).constData(), 1)
            << QString::asprintf(kAllGuids, tableName(kTableClass).constData());
    // Prepared statements with their placeholders bound to literals.
    const auto bind = [&](QString sql) {
        sql.replace(QStringLiteral("(%1.[ClassId] = ?)").arg(QString::fromLatin1(level)),
                    QStringLiteral("(%1.[ClassId] = %2)")
                        .arg(QString::fromLatin1(level), QString::fromLatin1(g)));
        sql.replace(QStringLiteral("(%1.[DomainId] = ?)").arg(QString::fromLatin1(level)),
                    QStringLiteral("(%1.[DomainId] = %2)")
                        .arg(QString::fromLatin1(level), QString::fromLatin1(g)));
        sql.replace(QStringLiteral("= ?"), QStringLiteral("= 1"));
        return sql;
    };
    samples << bind(QString::asprintf(kSpellsForClassLevel, level.constData(), spell.constData(),
                                      level.constData(), spell.constData(), level.constData(),
                                      level.constData(), level.constData()))
            << bind(QString::asprintf(kSpellsForClass, level.constData(), spell.constData(),
                                      level.constData(), spell.constData(), level.constData(),
                                      level.constData()))
            << bind(QString::asprintf(kSpellsDetailedForClassLevel, spell.constData(),
                                      level.constData(), spell.constData(), level.constData(),
                                      level.constData(), level.constData()))
            << bind(QString::asprintf(kSpellsDetailedForDomainLevel, spell.constData(),
                                      level.constData(), spell.constData(), level.constData(),
                                      level.constData(), level.constData()))
            << bind(QString::asprintf(kSpellInfo, spell.constData()));
    return samples;
}
