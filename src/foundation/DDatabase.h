#pragma once

#include "FCPointerMap.h"
#include "FCString.h"

#include <QStringList>
#include <QUuid>

#include <functional>
#include <memory>
#include <vector>

#include <array>

class DInfo;
class DAlignmentInfo;
class DClassInfo;
class DClassLevelInfo;
class DCoinInfo;
class DDamageChangeInfo;
class DFeatInfo;
class DSchoolInfo;
class DSimpleInfo;
class DSizeInfo;
class DSkillInfo;

namespace odbc {
class Connection;
class PreparedStatement;
class ResultSet;
} // namespace odbc

// Indexes of the tables that code names most; every table has its index in GetTableName.
enum DTableIndex : int {
    kTableCoin = 0,
    kTableClass = 1,
    kTableClassSkillUsability = 2,
    kTableAlignment = 5,
    kTableSize = 9,
    kTableSizeScale = 11,
    kTableSkill = 12,
    kTableSkillSub = 13,
    kTableSkillBonusesSynergy = 14,
    kTableSkillBonusesSize = 15,
    kTableSkillBonusesGoods = 16,
    kTableFeat = 17,
    kTableFeatPrerequisites = 18,
    kTableFeatClassPrerequisites = 19,
    kTableFeatBonuses = 20,
    kTableLevelGold = 21,
    kTableLanguage = 22,
    kTableDice = 25,
    kTableRaceSpecialAttacks = 28,
    kTableRaceSizeBonusHitPoints = 33,
    kTableAdvancementDamage = 35,
    kTableAdvancementAge = 36,
    kTableSpell = 37,
    kTableSpellLevel = 38,
    kTableSpellsPerDay = 39,
    kTableSpellsCanKnow = 40,
    kTableWondrousItems = 87,
    kTableWeapons = 118,
    kTableArmor = 119,
    kTableShield = 120,
    kTableGoods = 121,
    kTableMasterworkCosts = 122,
    kTableGod = 142,
    kTableDomain = 143,
    kTableDomainSkill = 144,
    kTableSpellSchools = 147,
    kTableFamiliar = 151,
    kTableMount = 152,
    kTableFiendish = 153,
    kTableRollMethods = 158,
    kTableRollCampaigns = 159,
    kTableClassBonusFeats = 177,
    kTableFeatures = 178,
    kTableRandomStartingAges = 187,
    kTableDieQuickButtons = 205,
    kTableCount = 212,
};

// The only way to the rules database. Small, hot tables are loaded into maps once at start-up;
// everything else is one query per call. A failed query is reported once ("Query failed")
// and the call gives its neutral result, so no database fault ends the program.
class DDatabase {
public:
    DDatabase() = delete;

    static bool StartUp(const FCString& path);
    static void ShutDown();
    static bool SetPath(const FCString& path);
    static const FCString& GetPath() { return mDatabasePath; }
    static void PreloadIfNeeded();
    // Tables a database must have to be used at all (StartUp refuses one without them).
    static std::vector<int> GetRequiredTables();
    static bool HasPreloaded() { return mHasPreloaded; }

    static odbc::Connection* GetConnection() { return mConnection; }
    // The library-wide item collection (a DItemCollection of the items layer).
    static FCObject* GetItemCollection() { return mItemCollection; }
    static const FCString& GetTableName(int index);
    // Runs `sql` and hands each row in turn to `onRow`. A failure is reported once ("Query
    // failed") and ends the walk; false then, or without a connection.
    static bool ForEachRow(const QString& sql, const std::function<void(odbc::ResultSet*)>& onRow);
    // The first row only; true if there was one.
    static bool FirstRow(const QString& sql, const std::function<void(odbc::ResultSet*)>& onRow);
    // Whether a GUID column of a row table holds `guid` in any row. The column's values are read
    // once per connection, for the small bonus tables that most keys have no row in.
    static bool ColumnHoldsGuid(int table, const char* column, const QUuid& guid);
    static int GetItemTypeTableId(int itemType);

    // Rule maps: the record or null. Records stay owned by the map.
    static DClassInfo* GetClassInfoA(const QUuid& guid);
    static DAlignmentInfo* GetAlignmentInfo(int id);
    static DSizeInfo* GetSizeInfo(int id);
    static DClassLevelInfo* GetClassLevelInfo(int level);
    static DSkillInfo* GetSkillInfo(const QUuid& guid);
    static DFeatInfo* GetFeatInfo(const QUuid& guid);
    static DCoinInfo* GetCoinInfo(int id);
    static DSchoolInfo* GetSchoolInfo(int id);
    static DDamageChangeInfo* GetDamageChangeInfo(int id);
    // Item rule records (classes of the items layer), as their DInfo base.
    static DInfo* GetWeaponInfo(const QUuid& guid);
    static DInfo* GetArmorInfo(const QUuid& guid);
    static DInfo* GetShieldInfo(const QUuid& guid);
    static DInfo* GetGoodsInfo(const QUuid& guid);
    static DInfo* GetMasterworkCostInfo(int id);
    static DInfo* GetWondrousInfo(const QUuid& guid);
    static DSimpleInfo* GetHelperInfo(int helper, int id);

    static const FCPointerMap<QUuid, DInfo>& GetClassInfoMap() { return mClassInfoMap; }
    static const FCPointerMap<int, DInfo>& GetAlignmentInfoMap() { return mAlignmentInfoMap; }
    static const FCPointerMap<int, DInfo>& GetSizeInfoMap() { return mSizeInfoMap; }
    static const FCPointerMap<QUuid, DInfo>& GetSkillInfoMap() { return mSkillInfoMap; }
    static const FCPointerMap<QUuid, DInfo>& GetFeatInfoMap() { return mFeatInfoMap; }
    static const FCPointerMap<int, DInfo>& GetSchoolInfoMap() { return mSchoolInfoMap; }
    static const FCPointerMap<QUuid, DInfo>& GetWeaponInfoMap() { return mWeaponInfoMap; }
    static const FCPointerMap<QUuid, DInfo>& GetArmorInfoMap() { return mArmorInfoMap; }
    static const FCPointerMap<QUuid, DInfo>& GetShieldInfoMap() { return mShieldInfoMap; }
    static const FCPointerMap<QUuid, DInfo>& GetGoodsInfoMap() { return mGoodsInfoMap; }
    static const FCPointerMap<int, DInfo>& GetHelperInfoMap(int helper);
    static constexpr int kHelperCount = 8;

    // Row queries: fill `info` from the first row; true if there was one.
    static bool GetInfo(int table, int id, DInfo* info);
    static bool GetInfo(int table, int id, int subId, DInfo* info);
    static bool GetInfo(int table, const QUuid& guid, DInfo* info);
    static bool GetInfo(int table, const QUuid& guid, const QUuid& subGuid, DInfo* info);
    static bool GetInfo(int table, const QUuid& id, int subId, DInfo* info);
    static bool GetSpellsPerDayInfo(const QUuid& classId, int level, DInfo* info);
    static bool GetSpellLevelInfoWithClass(const QUuid& spell, const QUuid& classId, DInfo* info);
    // kind 0 familiar, 1 mount, 2 fiendish; `info` may be null to test for a row only.
    static bool GetFamiliarMountInfo(int masterLevel, int kind, DInfo* info);

    // Value queries.
    static QUuid GetGuid(int table, int id);
    static QUuid GetSubGuid(int table, int id, int subId);
    static bool GetHelpText(int table, int id, FCString& out);
    static bool GetHelpText(int table, int id, int subId, FCString& out);
    static bool GetHelpText(int table, const QUuid& guid, FCString& out);
    static bool GetHelpText(int table, const QUuid& guid, const QUuid& subGuid, FCString& out);
    static int GetHelpIndex(int table, const QUuid& guid);
    static int GetHelpIndex(int table, const QUuid& guid, const QUuid& subGuid);
    static int GetRecordCount(int table);
    // Row count of a table without reporting a failure: -1 when the table cannot be read,
    // which is how a missing table shows itself.
    static int ProbeRecordCount(int table);
    static int GetSpellSchool(const QUuid& spell);
    static int GetSpecialAttackType(int id);
    static QUuid PickRandomGuidFromTable(int table);

    // Prepared statements, made on first use and kept: callers bind and execute them again.
    static odbc::PreparedStatement* GetSpellsForClassLevelStmt();
    static odbc::PreparedStatement* GetSpellsForClassStmt();
    static odbc::PreparedStatement* GetSpellsDetailedForClassLevelStmt();
    static odbc::PreparedStatement* GetSpellsDetailedForDomainLevelStmt();
    static odbc::PreparedStatement* GetSpellInfoStmt();

    // Every statement text this class runs, filled with sample keys, so a test can run each
    // against a database and prove the schema answers all of them.
    static QStringList GetStatementSamples();

    // The class whose spell list the Wizard shares, and the Wizard.
    // Constant-initialised: {DC103390-3378-411F-9A3A-CAB0CFD00B68} and
    // {46FBFE80-C7CE-4BEA-B211-CE668C73ED38}.
    static constexpr QUuid kWizardClassGuid{0xDC103390, 0x3378, 0x411F, 0x9A, 0x3A, 0xCA,
                                            0xB0,       0xCF,   0xD0,   0x0B, 0x68};
    static constexpr QUuid kSharedWizardListClassGuid{0x46FBFE80, 0xC7CE, 0x4BEA, 0xB2, 0x11, 0xCE,
                                                      0x66,       0x8C,   0x73,   0xED, 0x38};

private:
    // Empty when the connection reads every table a computation needs; else why not.
    static QString FindSchemaFault();
    static void LoadObjectPtrMapODBC(const FCString& tableName, const char* className,
                                     FCPointerMap<int, DInfo>& map);
    static void LoadGuidObjectPtrMapODBC(const FCString& tableName, const char* className,
                                         FCPointerMap<QUuid, DInfo>& map);
    static bool QueryInfo(const QString& sql, DInfo* info);
    static DInfo* LookupOrQuery(FCPointerMap<QUuid, DInfo>& map, int table, const char* className,
                                const QUuid& guid);
    static odbc::PreparedStatement* Prepare(odbc::PreparedStatement*& member, const QString& sql);

    static FCString mDatabasePath;
    static odbc::Connection* mConnection;
    static bool mHasPreloaded;
    struct ColumnGuids;
    static std::unique_ptr<ColumnGuids> mColumnGuids; // filled as asked, emptied by ShutDown
    static FCObject* mItemCollection;

    static FCPointerMap<QUuid, DInfo> mClassInfoMap;
    static FCPointerMap<int, DInfo> mAlignmentInfoMap;
    static FCPointerMap<int, DInfo> mSizeInfoMap;
    static FCPointerMap<int, DInfo> mClassLevelInfoMap;
    static FCPointerMap<QUuid, DInfo> mSkillInfoMap;
    static FCPointerMap<QUuid, DInfo> mFeatInfoMap;
    static FCPointerMap<int, DInfo> mCoinInfoMap;
    static FCPointerMap<int, DInfo> mSchoolInfoMap;
    static FCPointerMap<int, DInfo> mDamageChangeInfoMap;
    static FCPointerMap<QUuid, DInfo> mWeaponInfoMap;
    static FCPointerMap<QUuid, DInfo> mArmorInfoMap;
    static FCPointerMap<QUuid, DInfo> mShieldInfoMap;
    static FCPointerMap<QUuid, DInfo> mGoodsInfoMap;
    static FCPointerMap<int, DInfo> mMasterworkCostInfoMap;
    static FCPointerMap<QUuid, DInfo> mWondrousInfoMap;
    static std::array<FCPointerMap<int, DInfo>, kHelperCount> mHelperTableInfoMap;

    static odbc::PreparedStatement* mGetSpellsForClassLevelStmt;
    static odbc::PreparedStatement* mGetSpellsForClassStmt;
    static odbc::PreparedStatement* mGetSpellsDetailedForClassLevelStmt;
    static odbc::PreparedStatement* mGetSpellsDetailedForDomainLevelStmt;
    static odbc::PreparedStatement* mGetSpellInfoStmt;
};
