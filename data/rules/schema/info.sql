-- Rule tables: one row per rule thing, or per combination such as class and level.
-- GUIDs are VARCHAR(38) in the braced upper-case form. Booleans are INTEGER 0/1.

CREATE TABLE [info Coin] (
    Id INTEGER NOT NULL PRIMARY KEY,
    Name VARCHAR(100) NOT NULL,
    ShortName VARCHAR(10) NOT NULL,
    CopperEx REAL NOT NULL,
    SilverEx REAL NOT NULL,
    GoldEx REAL NOT NULL,
    PlatinumEx REAL NOT NULL,
    Weight REAL NOT NULL DEFAULT 0
);

-- ClassType: 1 base class, 2 creature type, 3 NPC class, 4 prestige class, 5 creature type
-- with another hit die than its usual one.
CREATE TABLE [info Class] (
    Id INTEGER NOT NULL UNIQUE,
    Guid VARCHAR(38) NOT NULL PRIMARY KEY,
    Name VARCHAR(100) NOT NULL,
    ShortName VARCHAR(20),
    ClassType INTEGER NOT NULL,
    DieId INTEGER NOT NULL REFERENCES [types Dice] (Id),
    AgeCat INTEGER NOT NULL DEFAULT 0,
    HIFORT INTEGER NOT NULL DEFAULT 0,
    HIREF INTEGER NOT NULL DEFAULT 0,
    HIWILL INTEGER NOT NULL DEFAULT 0,
    AttackBonusMultiplier REAL NOT NULL,
    SkillPPL INTEGER NOT NULL,
    BonusFP INTEGER NOT NULL DEFAULT 0,
    LevelsForBonusFP INTEGER NOT NULL DEFAULT 0,
    ClassSkills INTEGER NOT NULL DEFAULT 0,
    ExclusiveClassSkills INTEGER NOT NULL DEFAULT 0,
    GNumDie INTEGER NOT NULL DEFAULT 0,
    GDieId INTEGER NOT NULL DEFAULT 4 REFERENCES [types Dice] (Id),
    GMultiply INTEGER NOT NULL DEFAULT 0,
    CastType INTEGER NOT NULL DEFAULT 0 REFERENCES [types Spell Caster] (Id),
    SpMinLevel INTEGER NOT NULL DEFAULT 0,
    SpLevelMultiplier REAL NOT NULL DEFAULT 0,
    LevelForAnimal INTEGER NOT NULL DEFAULT 0,
    AnimalType INTEGER NOT NULL DEFAULT -1,
    ProSimple INTEGER NOT NULL DEFAULT 0,
    ProMartial INTEGER NOT NULL DEFAULT 0,
    ProLArmor INTEGER NOT NULL DEFAULT 0,
    ProMArmor INTEGER NOT NULL DEFAULT 0,
    ProHArmor INTEGER NOT NULL DEFAULT 0,
    ProShield INTEGER NOT NULL DEFAULT 0,
    SpAbility INTEGER NOT NULL DEFAULT -1,
    SpPrepares INTEGER NOT NULL DEFAULT 0,
    SpKnows INTEGER NOT NULL DEFAULT 0,
    BSPOperand1 INTEGER NOT NULL DEFAULT 0,
    BSPOperator INTEGER NOT NULL DEFAULT 0,
    BSPOperand2 INTEGER NOT NULL DEFAULT 0,
    BSPAbilityId INTEGER NOT NULL DEFAULT -1,
    BSPAbilityValueType INTEGER NOT NULL DEFAULT 0,
    BSPMultiplyHD INTEGER NOT NULL DEFAULT 0,
    BSPBonusPerEHD INTEGER NOT NULL DEFAULT 0,
    SPAdvanceType INTEGER NOT NULL DEFAULT 0,
    BFPBase INTEGER NOT NULL DEFAULT 0,
    BFPIntBonus INTEGER NOT NULL DEFAULT 0,
    BFPPerHD INTEGER NOT NULL DEFAULT 0,
    BFPIsTotalHD INTEGER NOT NULL DEFAULT 0
);

CREATE TABLE [info Class Skill Usability] (
    ClassId VARCHAR(38) NOT NULL REFERENCES [info Class] (Guid),
    SkillId VARCHAR(38) NOT NULL REFERENCES [info Skill] (Guid),
    Usability INTEGER NOT NULL DEFAULT 1 REFERENCES [types Skill Usability] (Id),
    PRIMARY KEY (ClassId, SkillId)
);

-- Ids are bit sets: law-chaos axis 1 lawful, 2 neutral, 4 chaotic; good-evil axis 8 good,
-- 16 neutral, 32 evil. ONEOFF0..ONEOFF3 are the alignments one step away (-1 none).
CREATE TABLE [info Alignment] (
    Id INTEGER NOT NULL PRIMARY KEY,
    SortNum INTEGER NOT NULL,
    Name VARCHAR(100) NOT NULL,
    ShortName VARCHAR(10) NOT NULL,
    ONEOFF0 INTEGER NOT NULL DEFAULT -1,
    ONEOFF1 INTEGER NOT NULL DEFAULT -1,
    ONEOFF2 INTEGER NOT NULL DEFAULT -1,
    ONEOFF3 INTEGER NOT NULL DEFAULT -1
);

-- Alignments barred from a class.
CREATE TABLE [info Class Alignment Restrictions] (
    ClassId VARCHAR(38) NOT NULL REFERENCES [info Class] (Guid),
    AlignmentId INTEGER NOT NULL REFERENCES [info Alignment] (Id),
    PRIMARY KEY (ClassId, AlignmentId)
);

CREATE TABLE [info Race Subtypes] (
    Id INTEGER NOT NULL PRIMARY KEY,
    Name VARCHAR(100) NOT NULL
);

-- Mod* columns: the change when a creature grows into this size from the next smaller one.
-- Dim*: height or length in feet; Wt*: weight in pounds; CostMod and WeightMod: factors of
-- equipment made for this size, relative to Medium.
CREATE TABLE [info Size] (
    Id INTEGER NOT NULL PRIMARY KEY,
    Name VARCHAR(100) NOT NULL,
    CapMod REAL NOT NULL,
    ArmorMod INTEGER NOT NULL,
    GrappleMod INTEGER NOT NULL DEFAULT 0,
    HideMod INTEGER NOT NULL DEFAULT 0,
    DimMin REAL NOT NULL,
    DimMax REAL NOT NULL,
    WtMin REAL NOT NULL,
    WtMax REAL NOT NULL,
    ModStr INTEGER NOT NULL DEFAULT 0,
    ModDex INTEGER NOT NULL DEFAULT 0,
    ModCon INTEGER NOT NULL DEFAULT 0,
    ModNatAC INTEGER NOT NULL DEFAULT 0,
    EHDMod INTEGER NOT NULL DEFAULT 0,
    CostMod REAL NOT NULL,
    WeightMod REAL NOT NULL,
    ArmorBonusMod REAL NOT NULL DEFAULT 1
);

CREATE TABLE [info Size Direction] (
    Id INTEGER NOT NULL PRIMARY KEY,
    Name VARCHAR(100) NOT NULL
);

-- Space and natural reach by size (Id) and direction (SubId), in feet.
CREATE TABLE [info Size Scale] (
    Id INTEGER NOT NULL REFERENCES [info Size] (Id),
    SubId INTEGER NOT NULL REFERENCES [info Size Direction] (Id),
    NatReach INTEGER NOT NULL,
    FaceWidth REAL NOT NULL,
    FaceLength REAL NOT NULL,
    PRIMARY KEY (Id, SubId)
);

-- StatId: ability index, -1 none.
CREATE TABLE [info Skill] (
    Id INTEGER NOT NULL UNIQUE,
    Guid VARCHAR(38) NOT NULL PRIMARY KEY,
    Name VARCHAR(100) NOT NULL,
    ShortName VARCHAR(40),
    StatId INTEGER NOT NULL DEFAULT -1,
    IsMulti INTEGER NOT NULL DEFAULT 0,
    Untrain INTEGER NOT NULL DEFAULT 0,
    ACPen INTEGER NOT NULL DEFAULT 0,
    NPACPen INTEGER NOT NULL DEFAULT 0,
    Exclusive INTEGER NOT NULL DEFAULT 0,
    PenaltyPounds INTEGER NOT NULL DEFAULT 0,
    HelpText TEXT,
    HelpIndex INTEGER NOT NULL DEFAULT -1
);

-- Guid is the parent skill; SubGuid the sub-skill's own identity.
CREATE TABLE [info Skill Sub] (
    Guid VARCHAR(38) NOT NULL REFERENCES [info Skill] (Guid),
    SubGuid VARCHAR(38) NOT NULL,
    Name VARCHAR(100) NOT NULL,
    HelpText TEXT,
    HelpIndex INTEGER NOT NULL DEFAULT -1,
    PRIMARY KEY (Guid, SubGuid)
);

CREATE TABLE [info Skill Bonuses Synergy] (
    SourceSkill VARCHAR(38) NOT NULL REFERENCES [info Skill] (Guid),
    SourceSubSkill VARCHAR(38) REFERENCES [info Skill Sub] (SubGuid),
    ReqRanks INTEGER NOT NULL DEFAULT 5,
    TargetSkill VARCHAR(38) NOT NULL REFERENCES [info Skill] (Guid),
    TargetSubSkill VARCHAR(38) REFERENCES [info Skill Sub] (SubGuid),
    Bonus INTEGER NOT NULL DEFAULT 2,
    UNIQUE (SourceSkill, SourceSubSkill, TargetSkill, TargetSubSkill)
);

CREATE TABLE [info Skill Bonuses Size] (
    SkillId VARCHAR(38) NOT NULL REFERENCES [info Skill] (Guid),
    SizeId INTEGER NOT NULL REFERENCES [info Size] (Id),
    Bonus INTEGER NOT NULL,
    PRIMARY KEY (SkillId, SizeId)
);

CREATE TABLE [info Skill Bonuses Goods] (
    GoodsId VARCHAR(38) NOT NULL REFERENCES [info Goods] (Guid),
    TargetSkill VARCHAR(38) NOT NULL REFERENCES [info Skill] (Guid),
    TargetSubSkill VARCHAR(38) REFERENCES [info Skill Sub] (SubGuid),
    Penalty INTEGER NOT NULL DEFAULT 0,
    Bonus INTEGER NOT NULL DEFAULT 0,
    BonusMasterwork INTEGER NOT NULL DEFAULT 0,
    UNIQUE (GoodsId, TargetSkill, TargetSubSkill)
);

CREATE TABLE [info Feat] (
    Guid VARCHAR(38) NOT NULL PRIMARY KEY,
    Name VARCHAR(100) NOT NULL,
    ShortName VARCHAR(40),
    Type INTEGER NOT NULL DEFAULT 0 REFERENCES [types Feat] (Id),
    StackType INTEGER NOT NULL DEFAULT 0 REFERENCES [types Feat Stacking] (Id),
    Target INTEGER NOT NULL DEFAULT 0 REFERENCES [types Feat Target] (Id),
    HelpText TEXT,
    HelpIndex INTEGER NOT NULL DEFAULT -1
);

-- Id is the feat that has the prerequisite; Type a row of [types Feat Requirement].
CREATE TABLE [info Feat Prerequisites] (
    Id VARCHAR(38) NOT NULL REFERENCES [info Feat] (Guid),
    Type INTEGER NOT NULL REFERENCES [types Feat Requirement] (Id),
    Data INTEGER NOT NULL DEFAULT 0,
    FeatId VARCHAR(38) REFERENCES [info Feat] (Guid),
    SkillId VARCHAR(38) REFERENCES [info Skill] (Guid),
    AbStat INTEGER NOT NULL DEFAULT -1
);

CREATE TABLE [info Feat Class Prerequisites] (
    Id VARCHAR(38) NOT NULL REFERENCES [info Feat] (Guid),
    ClassId VARCHAR(38) NOT NULL REFERENCES [info Class] (Guid),
    Level INTEGER NOT NULL,
    PRIMARY KEY (Id, ClassId)
);

-- Type: 2 Fortitude, 3 Reflex, 4 Will, 5 initiative, 6 skill, 7 hit points.
CREATE TABLE [info Feat Bonuses] (
    Id VARCHAR(38) NOT NULL REFERENCES [info Feat] (Guid),
    Type INTEGER NOT NULL,
    Data INTEGER NOT NULL DEFAULT 0,
    SkillId VARCHAR(38) REFERENCES [info Skill] (Guid)
);

-- Id is the character level; StartGold the wealth of a character made at that level.
CREATE TABLE [info Level Gold] (
    Id INTEGER NOT NULL PRIMARY KEY,
    StartGold INTEGER NOT NULL
);

CREATE TABLE [info Language] (
    Id INTEGER NOT NULL UNIQUE,
    Guid VARCHAR(38) NOT NULL PRIMARY KEY,
    Name VARCHAR(100) NOT NULL,
    Alphabet VARCHAR(100),
    IsSecret INTEGER NOT NULL DEFAULT 0,
    AutoOnly INTEGER NOT NULL DEFAULT 0,
    HelpText TEXT,
    HelpIndex INTEGER NOT NULL DEFAULT -1
);

-- Speed multipliers by armor weight and by load.
CREATE TABLE [info Speed] (
    Id INTEGER NOT NULL PRIMARY KEY,
    Name VARCHAR(100) NOT NULL,
    LightArmorMult REAL NOT NULL DEFAULT 1,
    MedArmorMult REAL NOT NULL DEFAULT 1,
    HeavyArmorMult REAL NOT NULL DEFAULT 1,
    LightLoadMult REAL NOT NULL DEFAULT 1,
    MedLoadMult REAL NOT NULL DEFAULT 1,
    HeavyLoadMult REAL NOT NULL DEFAULT 1,
    OverLoadMult REAL NOT NULL DEFAULT 0
);

CREATE TABLE [info Race Size Bonus Hitpoints] (
    ClassId VARCHAR(38) NOT NULL REFERENCES [info Class] (Guid),
    SizeId INTEGER NOT NULL REFERENCES [info Size] (Id),
    BonusHPs INTEGER NOT NULL,
    PRIMARY KEY (ClassId, SizeId)
);

-- One size step of a damage die: a die that grows gives UpDieCount times as many UpDieId dice.
CREATE TABLE [info Advancement Damage] (
    FromDieId INTEGER NOT NULL PRIMARY KEY REFERENCES [types Dice] (Id),
    UpDieCount INTEGER NOT NULL,
    UpDieId INTEGER NOT NULL REFERENCES [types Dice] (Id),
    DownDieCount INTEGER NOT NULL,
    DownDieId INTEGER NOT NULL REFERENCES [types Dice] (Id)
);

-- Id 0: adult to middle age, 1: middle age to old, 2: old to venerable.
CREATE TABLE [info Advancement Age] (
    Id INTEGER NOT NULL PRIMARY KEY,
    Name VARCHAR(100) NOT NULL,
    AdjStr INTEGER NOT NULL DEFAULT 0,
    AdjDex INTEGER NOT NULL DEFAULT 0,
    AdjCon INTEGER NOT NULL DEFAULT 0,
    AdjInt INTEGER NOT NULL DEFAULT 0,
    AdjWis INTEGER NOT NULL DEFAULT 0,
    AdjCha INTEGER NOT NULL DEFAULT 0
);

-- Range, Duration, Save, TimeType: rows of the [types ...] tables of the same meaning.
-- Components and Descriptors are bit sets of their [types ...] tables.
CREATE TABLE [info Spell] (
    Id INTEGER NOT NULL UNIQUE,
    Guid VARCHAR(38) NOT NULL PRIMARY KEY,
    Name VARCHAR(100) NOT NULL,
    ShortName VARCHAR(40),
    SchoolId INTEGER NOT NULL REFERENCES [info Spell Schools] (Id),
    CastTime INTEGER NOT NULL DEFAULT 1,
    TimeType INTEGER NOT NULL DEFAULT 1 REFERENCES [types Time] (Id),
    Range INTEGER NOT NULL DEFAULT 0 REFERENCES [types Spell Range] (Id),
    Duration INTEGER NOT NULL DEFAULT 0 REFERENCES [types Spell Duration] (Id),
    Save INTEGER NOT NULL DEFAULT 0 REFERENCES [types Spell Save] (Id),
    MaterialCost INTEGER NOT NULL DEFAULT 0,
    WandCost INTEGER NOT NULL DEFAULT 0,
    Components INTEGER NOT NULL DEFAULT 0,
    [Spell Resistance] INTEGER NOT NULL DEFAULT 0 REFERENCES [types Spell Resistance] (Id),
    Descriptors INTEGER NOT NULL DEFAULT 0,
    HelpText TEXT,
    HelpIndex INTEGER NOT NULL DEFAULT -1
);

-- A spell (Id) on one class list or one domain list.
CREATE TABLE [info Spell Level] (
    Id VARCHAR(38) NOT NULL REFERENCES [info Spell] (Guid),
    ClassId VARCHAR(38) REFERENCES [info Class] (Guid),
    DomainId VARCHAR(38) REFERENCES [info Domain] (Guid),
    Level INTEGER NOT NULL,
    UNIQUE (Id, ClassId, DomainId)
);
CREATE INDEX [ix Spell Level Class] ON [info Spell Level] (ClassId, Level);
CREATE INDEX [ix Spell Level Domain] ON [info Spell Level] (DomainId, Level);

-- Id is the class, SubId the class level; columns 0 to 9 the count per spell level
-- (-1: no slot of that level). LevelNeedingBonus: the spell level that exists at this
-- class level only with a bonus spell (-1 none).
CREATE TABLE [info Spells Per Day] (
    Id VARCHAR(38) NOT NULL REFERENCES [info Class] (Guid),
    SubId INTEGER NOT NULL,
    [0] INTEGER NOT NULL DEFAULT -1,
    [1] INTEGER NOT NULL DEFAULT -1,
    [2] INTEGER NOT NULL DEFAULT -1,
    [3] INTEGER NOT NULL DEFAULT -1,
    [4] INTEGER NOT NULL DEFAULT -1,
    [5] INTEGER NOT NULL DEFAULT -1,
    [6] INTEGER NOT NULL DEFAULT -1,
    [7] INTEGER NOT NULL DEFAULT -1,
    [8] INTEGER NOT NULL DEFAULT -1,
    [9] INTEGER NOT NULL DEFAULT -1,
    LevelNeedingBonus INTEGER NOT NULL DEFAULT -1,
    PRIMARY KEY (Id, SubId)
);

CREATE TABLE [info Spells Can Know] (
    Id VARCHAR(38) NOT NULL REFERENCES [info Class] (Guid),
    SubId INTEGER NOT NULL,
    [0] INTEGER NOT NULL DEFAULT -1,
    [1] INTEGER NOT NULL DEFAULT -1,
    [2] INTEGER NOT NULL DEFAULT -1,
    [3] INTEGER NOT NULL DEFAULT -1,
    [4] INTEGER NOT NULL DEFAULT -1,
    [5] INTEGER NOT NULL DEFAULT -1,
    [6] INTEGER NOT NULL DEFAULT -1,
    [7] INTEGER NOT NULL DEFAULT -1,
    [8] INTEGER NOT NULL DEFAULT -1,
    [9] INTEGER NOT NULL DEFAULT -1,
    LevelNeedingBonus INTEGER NOT NULL DEFAULT -1,
    PRIMARY KEY (Id, SubId)
);

CREATE TABLE [info Gem] (
    Guid VARCHAR(38) NOT NULL PRIMARY KEY,
    Name VARCHAR(100) NOT NULL,
    Category INTEGER NOT NULL,
    CoinCount INTEGER NOT NULL DEFAULT 0,
    CoinType INTEGER NOT NULL DEFAULT 2 REFERENCES [info Coin] (Id),
    IsMagic INTEGER NOT NULL DEFAULT 0
);

CREATE TABLE [info Art Objects] (
    Guid VARCHAR(38) NOT NULL PRIMARY KEY,
    Name VARCHAR(100) NOT NULL,
    Category INTEGER NOT NULL,
    CoinCount INTEGER NOT NULL DEFAULT 0,
    CoinType INTEGER NOT NULL DEFAULT 2 REFERENCES [info Coin] (Id),
    IsMagic INTEGER NOT NULL DEFAULT 0
);

CREATE TABLE [info Potions] (
    Guid VARCHAR(38) NOT NULL PRIMARY KEY,
    Name VARCHAR(100) NOT NULL,
    CoinCount INTEGER NOT NULL DEFAULT 0,
    CoinType INTEGER NOT NULL DEFAULT 2 REFERENCES [info Coin] (Id),
    Weight REAL NOT NULL DEFAULT 0,
    IsMagic INTEGER NOT NULL DEFAULT 1,
    HelpText TEXT,
    HelpIndex INTEGER NOT NULL DEFAULT -1
);

CREATE TABLE [info Rings] (
    Guid VARCHAR(38) NOT NULL PRIMARY KEY,
    Name VARCHAR(100) NOT NULL,
    CoinCount INTEGER NOT NULL DEFAULT 0,
    CoinType INTEGER NOT NULL DEFAULT 2 REFERENCES [info Coin] (Id),
    Weight REAL NOT NULL DEFAULT 0,
    IsMagic INTEGER NOT NULL DEFAULT 1,
    HelpText TEXT,
    HelpIndex INTEGER NOT NULL DEFAULT -1
);

CREATE TABLE [info Rods] (
    Guid VARCHAR(38) NOT NULL PRIMARY KEY,
    Name VARCHAR(100) NOT NULL,
    CoinCount INTEGER NOT NULL DEFAULT 0,
    CoinType INTEGER NOT NULL DEFAULT 2 REFERENCES [info Coin] (Id),
    Weight REAL NOT NULL DEFAULT 0,
    IsMagic INTEGER NOT NULL DEFAULT 1,
    HelpText TEXT,
    HelpIndex INTEGER NOT NULL DEFAULT -1
);

-- CoinCount is the price of a staff with 50 charges.
CREATE TABLE [info Staffs] (
    Guid VARCHAR(38) NOT NULL PRIMARY KEY,
    Name VARCHAR(100) NOT NULL,
    CoinCount INTEGER NOT NULL DEFAULT 0,
    CoinType INTEGER NOT NULL DEFAULT 2 REFERENCES [info Coin] (Id),
    Weight REAL NOT NULL DEFAULT 0,
    IsMagic INTEGER NOT NULL DEFAULT 1,
    HelpText TEXT,
    HelpIndex INTEGER NOT NULL DEFAULT -1
);

CREATE TABLE [info Wondrous Items] (
    Guid VARCHAR(38) NOT NULL PRIMARY KEY,
    Name VARCHAR(100) NOT NULL,
    CoinCount INTEGER NOT NULL DEFAULT 0,
    CoinType INTEGER NOT NULL DEFAULT 2 REFERENCES [info Coin] (Id),
    Weight REAL NOT NULL DEFAULT 0,
    IsMagic INTEGER NOT NULL DEFAULT 1,
    SubType INTEGER NOT NULL DEFAULT 14 REFERENCES [types Magic Item Sub] (Id),
    QualityType INTEGER NOT NULL DEFAULT 1 REFERENCES [types Magic Item Quality] (Id),
    PickTargetType INTEGER NOT NULL DEFAULT 0,
    HelpText TEXT,
    HelpIndex INTEGER NOT NULL DEFAULT -1
);

-- Variants of a wondrous item (Id) by step (SubId).
CREATE TABLE [info Wondrous Items Sub] (
    Id VARCHAR(38) NOT NULL REFERENCES [info Wondrous Items] (Guid),
    SubId INTEGER NOT NULL,
    Name VARCHAR(100) NOT NULL,
    CoinCount INTEGER NOT NULL DEFAULT 0,
    CoinType INTEGER NOT NULL DEFAULT 2 REFERENCES [info Coin] (Id),
    PRIMARY KEY (Id, SubId)
);

-- SizeId follows the weapon's size class: a light weapon for a Medium wielder is Small, a
-- one-handed one Medium, a two-handed one Large. DamageType bits: 1 bludgeoning, 2 piercing,
-- 4 slashing. FamilyId: 1 bows, 2 crossbows, 3 light blades, 4 heavy blades, 5 axes, 6 hammers
-- and maces, 7 flails, 8 polearms and spears, 9 natural or unarmed, 10 thrown, 11 ammunition,
-- 0 other.
CREATE TABLE [info Weapons] (
    Guid VARCHAR(38) NOT NULL PRIMARY KEY,
    Name VARCHAR(100) NOT NULL,
    CoinCount INTEGER NOT NULL DEFAULT 0,
    CoinType INTEGER NOT NULL DEFAULT 2 REFERENCES [info Coin] (Id),
    Weight REAL NOT NULL DEFAULT 0,
    Masterwork INTEGER NOT NULL DEFAULT 0 REFERENCES [info Masterwork Costs] (Id),
    IsMagic INTEGER NOT NULL DEFAULT 0,
    MagicBonus INTEGER NOT NULL DEFAULT 0,
    CanBeMagic INTEGER NOT NULL DEFAULT 1,
    Count INTEGER NOT NULL DEFAULT 1,
    RangeId INTEGER NOT NULL DEFAULT 0 REFERENCES [types Weapon Range] (Id),
    SkillId INTEGER NOT NULL DEFAULT 0 REFERENCES [types Weapon Proficiency] (Id),
    SizeId INTEGER NOT NULL DEFAULT 4 REFERENCES [info Size] (Id),
    DmgDieCount1 INTEGER NOT NULL DEFAULT 0,
    DmgDieCount2 INTEGER NOT NULL DEFAULT 0,
    DmgDieId1 INTEGER NOT NULL DEFAULT 4 REFERENCES [types Dice] (Id),
    DmgDieId2 INTEGER NOT NULL DEFAULT 4 REFERENCES [types Dice] (Id),
    CriticalMin INTEGER NOT NULL DEFAULT 20,
    CriticalX INTEGER NOT NULL DEFAULT 2,
    CriticalX2 INTEGER NOT NULL DEFAULT 0,
    RangeInc INTEGER NOT NULL DEFAULT 0,
    DamageType INTEGER NOT NULL DEFAULT 0,
    WeaponUse INTEGER NOT NULL DEFAULT 0 REFERENCES [types Weapon Use] (Id),
    StrBonus INTEGER NOT NULL DEFAULT 0 REFERENCES [types Strength Bonus] (Id),
    MaxStrBonus INTEGER NOT NULL DEFAULT 0,
    ActsAs VARCHAR(38) REFERENCES [info Weapons] (Guid),
    FamilyId INTEGER NOT NULL DEFAULT 0,
    SubdualDamage INTEGER NOT NULL DEFAULT 0,
    [2HandedMultiplier] INTEGER NOT NULL DEFAULT 0,
    MonkUnarmedWeapon INTEGER NOT NULL DEFAULT 0,
    GrenadeLike INTEGER NOT NULL DEFAULT 0,
    CantBuy INTEGER NOT NULL DEFAULT 0,
    HelpText TEXT,
    HelpIndex INTEGER NOT NULL DEFAULT -1
);

CREATE TABLE [info Armor] (
    Guid VARCHAR(38) NOT NULL PRIMARY KEY,
    Name VARCHAR(100) NOT NULL,
    CoinCount INTEGER NOT NULL DEFAULT 0,
    CoinType INTEGER NOT NULL DEFAULT 2 REFERENCES [info Coin] (Id),
    Weight REAL NOT NULL DEFAULT 0,
    Masterwork INTEGER NOT NULL DEFAULT 0 REFERENCES [info Masterwork Costs] (Id),
    SizeId INTEGER NOT NULL DEFAULT 4 REFERENCES [info Size] (Id),
    ArmorBonus INTEGER NOT NULL DEFAULT 0,
    MaxDex INTEGER NOT NULL DEFAULT 100,
    CheckPenalty INTEGER NOT NULL DEFAULT 0,
    SpellFailure INTEGER NOT NULL DEFAULT 0,
    WeightType INTEGER NOT NULL DEFAULT 0 REFERENCES [types Weight] (Id),
    Speed30 INTEGER NOT NULL DEFAULT 30,
    Speed20 INTEGER NOT NULL DEFAULT 20,
    IsMagic INTEGER NOT NULL DEFAULT 0,
    MagicBonus INTEGER NOT NULL DEFAULT 0,
    CanBeMagic INTEGER NOT NULL DEFAULT 1,
    HelpText TEXT,
    HelpIndex INTEGER NOT NULL DEFAULT -1
);

CREATE TABLE [info Shield] (
    Guid VARCHAR(38) NOT NULL PRIMARY KEY,
    Name VARCHAR(100) NOT NULL,
    CoinCount INTEGER NOT NULL DEFAULT 0,
    CoinType INTEGER NOT NULL DEFAULT 2 REFERENCES [info Coin] (Id),
    Weight REAL NOT NULL DEFAULT 0,
    Masterwork INTEGER NOT NULL DEFAULT 0 REFERENCES [info Masterwork Costs] (Id),
    SizeId INTEGER NOT NULL DEFAULT 4 REFERENCES [info Size] (Id),
    ArmorBonus INTEGER NOT NULL DEFAULT 0,
    MaxDex INTEGER NOT NULL DEFAULT 100,
    CheckPenalty INTEGER NOT NULL DEFAULT 0,
    SpellFailure INTEGER NOT NULL DEFAULT 0,
    CanBash INTEGER NOT NULL DEFAULT 0,
    CanHaveSpikes INTEGER NOT NULL DEFAULT 0,
    RangeId INTEGER NOT NULL DEFAULT 0 REFERENCES [types Weapon Range] (Id),
    IsMagic INTEGER NOT NULL DEFAULT 0,
    MagicBonus INTEGER NOT NULL DEFAULT 0,
    CanBeMagic INTEGER NOT NULL DEFAULT 1,
    HelpText TEXT,
    HelpIndex INTEGER NOT NULL DEFAULT -1
);

CREATE TABLE [info Goods] (
    Guid VARCHAR(38) NOT NULL PRIMARY KEY,
    Name VARCHAR(100) NOT NULL,
    CoinCount INTEGER NOT NULL DEFAULT 0,
    CoinType INTEGER NOT NULL DEFAULT 2 REFERENCES [info Coin] (Id),
    Weight REAL NOT NULL DEFAULT 0,
    Masterwork INTEGER NOT NULL DEFAULT 0 REFERENCES [info Masterwork Costs] (Id),
    GoodsType INTEGER NOT NULL DEFAULT 0 REFERENCES [types Goods] (Id),
    Capacity REAL NOT NULL DEFAULT 0,
    CapacityUnit INTEGER NOT NULL DEFAULT 0 REFERENCES [types Capacity Unit] (Id),
    Equip INTEGER NOT NULL DEFAULT 0,
    Small INTEGER NOT NULL DEFAULT 1,
    Superior INTEGER NOT NULL DEFAULT 0,
    IsMagic INTEGER NOT NULL DEFAULT 0,
    HelpText TEXT,
    HelpIndex INTEGER NOT NULL DEFAULT -1
);

-- Id 0: no masterwork form. Override: the cost replaces the item's price instead of adding.
CREATE TABLE [info Masterwork Costs] (
    Id INTEGER NOT NULL PRIMARY KEY,
    Name VARCHAR(100) NOT NULL,
    CoinCount INTEGER NOT NULL DEFAULT 0,
    CoinType INTEGER NOT NULL DEFAULT 2 REFERENCES [info Coin] (Id),
    Override INTEGER NOT NULL DEFAULT 0
);

-- AlignmentId 0: no one-step test. RestrictedAlignment: an alignment barred (-1 none).
CREATE TABLE [info God] (
    Guid VARCHAR(38) NOT NULL PRIMARY KEY,
    Name VARCHAR(100) NOT NULL,
    AlignmentId INTEGER NOT NULL DEFAULT 0 REFERENCES [info Alignment] (Id),
    RestrictedAlignment INTEGER NOT NULL DEFAULT -1,
    RestrictedByRace INTEGER NOT NULL DEFAULT 0,
    Portfolio VARCHAR(200),
    HelpText TEXT,
    HelpIndex INTEGER NOT NULL DEFAULT -1
);

-- RequiredAlignmentFlag: bits of [types Alignment Flags] of which the character's alignment
-- must share one (0: open to all).
CREATE TABLE [info Domain] (
    Guid VARCHAR(38) NOT NULL PRIMARY KEY,
    Name VARCHAR(100) NOT NULL,
    DomainAbility VARCHAR(200),
    RequiredAlignmentFlag INTEGER NOT NULL DEFAULT 0,
    OpposingDomain VARCHAR(38) REFERENCES [info Domain] (Guid),
    HelpText TEXT,
    HelpIndex INTEGER NOT NULL DEFAULT -1
);

-- Skills that a domain makes class skills.
CREATE TABLE [info Domain Skill] (
    DomainId VARCHAR(38) NOT NULL REFERENCES [info Domain] (Guid),
    SkillId VARCHAR(38) NOT NULL REFERENCES [info Skill] (Guid),
    ClassId VARCHAR(38) REFERENCES [info Class] (Guid),
    Usability INTEGER NOT NULL DEFAULT 1 REFERENCES [types Skill Usability] (Id),
    PRIMARY KEY (DomainId, SkillId)
);

CREATE TABLE [info God Domain] (
    GodId VARCHAR(38) NOT NULL REFERENCES [info God] (Guid),
    DomainId VARCHAR(38) NOT NULL REFERENCES [info Domain] (Guid),
    PRIMARY KEY (GodId, DomainId)
);

-- Feats a god gives a follower who takes a domain, with an optional target weapon.
CREATE TABLE [info God Domain Feat] (
    GodId VARCHAR(38) NOT NULL REFERENCES [info God] (Guid),
    DomainId VARCHAR(38) NOT NULL REFERENCES [info Domain] (Guid),
    FeatId VARCHAR(38) NOT NULL REFERENCES [info Feat] (Guid),
    WeaponId VARCHAR(38) REFERENCES [info Weapons] (Guid),
    PRIMARY KEY (GodId, DomainId, FeatId)
);

-- Category 1: one of the eight schools a specialist can choose or prohibit.
CREATE TABLE [info Spell Schools] (
    Id INTEGER NOT NULL PRIMARY KEY,
    Name VARCHAR(100) NOT NULL,
    Category INTEGER NOT NULL DEFAULT 0
);

-- Companion progression by master level; NaturalArmor, StrAdj, Int as the rules give them.
CREATE TABLE [info Familiar] (
    MasterLevelMin INTEGER NOT NULL PRIMARY KEY,
    MasterLevelMax INTEGER NOT NULL,
    BonusHD INTEGER NOT NULL DEFAULT 0,
    NaturalArmor INTEGER NOT NULL DEFAULT 0,
    StrAdj INTEGER NOT NULL DEFAULT 0,
    Int INTEGER NOT NULL DEFAULT 0
);

CREATE TABLE [info Mount] (
    MasterLevelMin INTEGER NOT NULL PRIMARY KEY,
    MasterLevelMax INTEGER NOT NULL,
    BonusHD INTEGER NOT NULL DEFAULT 0,
    NaturalArmor INTEGER NOT NULL DEFAULT 0,
    StrAdj INTEGER NOT NULL DEFAULT 0,
    Int INTEGER NOT NULL DEFAULT 0
);

CREATE TABLE [info Fiendish] (
    MasterLevelMin INTEGER NOT NULL PRIMARY KEY,
    MasterLevelMax INTEGER NOT NULL,
    BonusHD INTEGER NOT NULL DEFAULT 0,
    NaturalArmor INTEGER NOT NULL DEFAULT 0,
    StrAdj INTEGER NOT NULL DEFAULT 0,
    Int INTEGER NOT NULL DEFAULT 0
);

-- By the druid level the master counts; StrAdj raises Strength and Dexterity alike, Int 0
-- leaves the animal's own. BonusTricks: tricks beyond those its Intelligence allows.
CREATE TABLE [info Animal Companion] (
    MasterLevelMin INTEGER NOT NULL PRIMARY KEY,
    MasterLevelMax INTEGER NOT NULL,
    BonusHD INTEGER NOT NULL DEFAULT 0,
    NaturalArmor INTEGER NOT NULL DEFAULT 0,
    StrAdj INTEGER NOT NULL DEFAULT 0,
    Int INTEGER NOT NULL DEFAULT 0,
    BonusTricks INTEGER NOT NULL DEFAULT 0
);

-- Features a companion gains by master level.
CREATE TABLE [info Familiar Features] (
    Level INTEGER NOT NULL,
    FeatureId VARCHAR(38) NOT NULL REFERENCES [info Features] (Guid),
    Data INTEGER NOT NULL DEFAULT -1,
    PRIMARY KEY (Level, FeatureId)
);

CREATE TABLE [info Mount Features] (
    Level INTEGER NOT NULL,
    FeatureId VARCHAR(38) NOT NULL REFERENCES [info Features] (Guid),
    Data INTEGER NOT NULL DEFAULT -1,
    PRIMARY KEY (Level, FeatureId)
);

CREATE TABLE [info Fiendish Features] (
    Level INTEGER NOT NULL,
    FeatureId VARCHAR(38) NOT NULL REFERENCES [info Features] (Guid),
    Data INTEGER NOT NULL DEFAULT -1,
    PRIMARY KEY (Level, FeatureId)
);

CREATE TABLE [info Animal Companion Features] (
    Level INTEGER NOT NULL,
    FeatureId VARCHAR(38) NOT NULL REFERENCES [info Features] (Guid),
    Data INTEGER NOT NULL DEFAULT -1,
    PRIMARY KEY (Level, FeatureId)
);

-- Bonus tables of magic items: Id names the item or the ability; BonusType is the stacking
-- class, ModifyType what the bonus changes, SkillId or AbilityType its target.
CREATE TABLE [info Armor Bonuses] (
    Id VARCHAR(38) NOT NULL REFERENCES [info Armor] (Guid),
    BonusType INTEGER NOT NULL,
    Bonus INTEGER NOT NULL,
    ModifyType INTEGER NOT NULL,
    SkillId VARCHAR(38) REFERENCES [info Skill] (Guid),
    AbilityType INTEGER NOT NULL DEFAULT -1
);

CREATE TABLE [info Armor Shield Special Bonuses] (
    Id INTEGER NOT NULL REFERENCES [Table 8-6 and 8-7 Special Abilities] (Id),
    BonusType INTEGER NOT NULL,
    Bonus INTEGER NOT NULL,
    ModifyType INTEGER NOT NULL,
    SkillId VARCHAR(38) REFERENCES [info Skill] (Guid),
    AbilityType INTEGER NOT NULL DEFAULT -1
);

CREATE TABLE [info Weapon Bonuses] (
    Id VARCHAR(38) NOT NULL REFERENCES [info Weapons] (Guid),
    BonusType INTEGER NOT NULL,
    Bonus INTEGER NOT NULL,
    ModifyType INTEGER NOT NULL,
    SkillId VARCHAR(38) REFERENCES [info Skill] (Guid),
    AbilityType INTEGER NOT NULL DEFAULT -1
);

-- Extra damage dice: Bonus dice of DieType.
CREATE TABLE [info Weapon Bonuses Damage] (
    Id VARCHAR(38) NOT NULL REFERENCES [info Weapons] (Guid),
    DieType INTEGER NOT NULL REFERENCES [types Dice] (Id),
    Bonus INTEGER NOT NULL,
    Name VARCHAR(100)
);

CREATE TABLE [info Weapon Bonuses Special] (
    Id INTEGER NOT NULL REFERENCES [Table 8-15 and 8-16 Special Abilities] (Id),
    DieType INTEGER NOT NULL REFERENCES [types Dice] (Id),
    Bonus INTEGER NOT NULL,
    Name VARCHAR(100)
);

CREATE TABLE [info Ring Bonuses] (
    Id VARCHAR(38) NOT NULL REFERENCES [info Rings] (Guid),
    BonusType INTEGER NOT NULL,
    Bonus INTEGER NOT NULL,
    ModifyType INTEGER NOT NULL,
    SkillId VARCHAR(38) REFERENCES [info Skill] (Guid),
    AbilityType INTEGER NOT NULL DEFAULT -1
);

CREATE TABLE [info Rod Bonuses] (
    Id VARCHAR(38) NOT NULL REFERENCES [info Rods] (Guid),
    BonusType INTEGER NOT NULL,
    Bonus INTEGER NOT NULL,
    ModifyType INTEGER NOT NULL,
    SkillId VARCHAR(38) REFERENCES [info Skill] (Guid),
    AbilityType INTEGER NOT NULL DEFAULT -1
);

CREATE TABLE [info Staff Bonuses] (
    Id VARCHAR(38) NOT NULL REFERENCES [info Staffs] (Guid),
    BonusType INTEGER NOT NULL,
    Bonus INTEGER NOT NULL,
    ModifyType INTEGER NOT NULL,
    SkillId VARCHAR(38) REFERENCES [info Skill] (Guid),
    AbilityType INTEGER NOT NULL DEFAULT -1
);

CREATE TABLE [info Wondrous Bonuses] (
    Id VARCHAR(38) NOT NULL REFERENCES [info Wondrous Items] (Guid),
    BonusType INTEGER NOT NULL,
    Bonus INTEGER NOT NULL,
    ModifyType INTEGER NOT NULL,
    SkillId VARCHAR(38) REFERENCES [info Skill] (Guid),
    AbilityType INTEGER NOT NULL DEFAULT -1
);

CREATE TABLE [info Intelligent Abilities Bonuses] (
    Id INTEGER NOT NULL REFERENCES [types Intelligent Item Abilities] (Id),
    BonusType INTEGER NOT NULL,
    Bonus INTEGER NOT NULL,
    ModifyType INTEGER NOT NULL,
    SkillId VARCHAR(38) REFERENCES [info Skill] (Guid),
    AbilityType INTEGER NOT NULL DEFAULT -1
);

CREATE TABLE [info Intelligent Purpose Powers Bonuses] (
    Id INTEGER NOT NULL REFERENCES [types Intelligent Item Special Purpose Powers] (Id),
    BonusType INTEGER NOT NULL,
    Bonus INTEGER NOT NULL,
    ModifyType INTEGER NOT NULL,
    SkillId VARCHAR(38) REFERENCES [info Skill] (Guid),
    AbilityType INTEGER NOT NULL DEFAULT -1
);

-- Id is the load: 0 light, 1 medium, 2 heavy, 3 over the limit. MaxDex 100: no limit.
CREATE TABLE [info Load] (
    Id INTEGER NOT NULL PRIMARY KEY,
    Name VARCHAR(100) NOT NULL,
    MaxDex INTEGER NOT NULL,
    CheckPenalty INTEGER NOT NULL,
    SpeedMultiplier REAL NOT NULL,
    RunMultiplier INTEGER NOT NULL
);

-- Upper bounds in pounds of each load for a Medium biped of that Strength score.
CREATE TABLE [info Load Capacity] (
    Strength INTEGER NOT NULL PRIMARY KEY,
    LightLoad INTEGER NOT NULL,
    MediumLoad INTEGER NOT NULL,
    HeavyLoad INTEGER NOT NULL
);

-- Weapons a class handles by nature, up to a size.
CREATE TABLE [info Class Weapon Proficiency] (
    WeaponId VARCHAR(38) NOT NULL REFERENCES [info Weapons] (Guid),
    ClassId VARCHAR(38) NOT NULL REFERENCES [info Class] (Guid),
    SizeId INTEGER NOT NULL DEFAULT 8 REFERENCES [info Size] (Id),
    PRIMARY KEY (WeaponId, ClassId)
);

-- Data: a number for the feature (-1 none); DataGuid: a feat, language or weapon it names.
CREATE TABLE [info Class Features] (
    ClassId VARCHAR(38) NOT NULL REFERENCES [info Class] (Guid),
    Level INTEGER NOT NULL,
    FeatureId VARCHAR(38) NOT NULL REFERENCES [info Features] (Guid),
    Data INTEGER NOT NULL DEFAULT -1,
    DataGuid VARCHAR(38),
    UNIQUE (ClassId, Level, FeatureId, DataGuid)
);

-- Id is the class. RequireType 0 race family, 1 base attack, 2 feat (for SchoolId when it
-- is 0 or more), 3 skill ranks (of SubSkillId when given), 4 alignment (several race or
-- alignment rows are alternatives), 5 spells: SpellId castable, or else spells of level Data
-- of caster type CastType (0 any), 6 Data levels of ClassId, 7 the proficiency flags Data,
-- 8 speaks LanguageId. Rows sharing an AnyOf number above 0 are alternatives: one will do.
CREATE TABLE [info Class Requirements] (
    Id VARCHAR(38) NOT NULL REFERENCES [info Class] (Guid),
    RequireType INTEGER NOT NULL,
    RaceId INTEGER NOT NULL DEFAULT -1 REFERENCES [types Race Family] (Id),
    Data INTEGER NOT NULL DEFAULT 0,
    FeatId VARCHAR(38) REFERENCES [info Feat] (Guid),
    SkillId VARCHAR(38) REFERENCES [info Skill] (Guid),
    AlignmentId INTEGER NOT NULL DEFAULT -1,
    SubSkillId VARCHAR(38) REFERENCES [info Skill Sub] (SubGuid),
    SchoolId INTEGER NOT NULL DEFAULT -1 REFERENCES [info Spell Schools] (Id),
    SpellId VARCHAR(38) REFERENCES [info Spell] (Guid),
    CastType INTEGER NOT NULL DEFAULT 0 REFERENCES [types Spell Caster] (Id),
    ClassId VARCHAR(38) REFERENCES [info Class] (Guid),
    AnyOf INTEGER NOT NULL DEFAULT 0,
    LanguageId VARCHAR(38) REFERENCES [info Language] (Guid)
);

CREATE TABLE [info Class Bonus Feats] (
    ClassId VARCHAR(38) NOT NULL REFERENCES [info Class] (Guid),
    FeatId VARCHAR(38) NOT NULL REFERENCES [info Feat] (Guid),
    PRIMARY KEY (ClassId, FeatId)
);

-- Id repeats Guid so that tables naming a feature by FeatureId can join on it.
-- Group: features of one group other than 0 and 25 replace each other. Type: what the
-- feature does to the character (rows of [types Character Features]).
CREATE TABLE [info Features] (
    Guid VARCHAR(38) NOT NULL PRIMARY KEY,
    Id VARCHAR(38) NOT NULL UNIQUE REFERENCES [info Features] (Guid),
    Name VARCHAR(100) NOT NULL,
    [Group] INTEGER NOT NULL DEFAULT 0,
    Type INTEGER NOT NULL DEFAULT 0 REFERENCES [types Character Features] (Id),
    HelpText TEXT,
    HelpIndex INTEGER NOT NULL DEFAULT -1
);

-- Level: the highest monk level of the row.
CREATE TABLE [info Monk Unarmed Damage] (
    SizeId INTEGER NOT NULL REFERENCES [info Size] (Id),
    Level INTEGER NOT NULL,
    DieCount INTEGER NOT NULL,
    DieId INTEGER NOT NULL REFERENCES [types Dice] (Id),
    PRIMARY KEY (SizeId, Level)
);

CREATE TABLE [info Monk Unarmored Speed] (
    Level INTEGER NOT NULL,
    BaseSpeed INTEGER NOT NULL,
    Speed INTEGER NOT NULL,
    PRIMARY KEY (Level, BaseSpeed)
);

CREATE TABLE [info Loremaster Secrets] (
    Level INTEGER NOT NULL,
    Data INTEGER NOT NULL DEFAULT -1,
    FeatureId VARCHAR(38) NOT NULL PRIMARY KEY REFERENCES [info Features] (Guid)
);

CREATE TABLE [info Fallen Paladin Features] (
    Level INTEGER NOT NULL,
    FeatureId VARCHAR(38) NOT NULL REFERENCES [info Features] (Guid),
    PRIMARY KEY (Level, FeatureId)
);

CREATE TABLE [info Ranger Favored Enemy] (
    Id INTEGER NOT NULL PRIMARY KEY,
    Name VARCHAR(100) NOT NULL
);

-- Weapons a bard may pick as a bonus proficiency.
CREATE TABLE [info Bard Weapon Proficiency] (
    Id VARCHAR(38) NOT NULL PRIMARY KEY REFERENCES [info Weapons] (Guid)
);

-- Ids 1 to 9: the quick buttons of the dice roller.
CREATE TABLE [info Die Quick Buttons] (
    Id INTEGER NOT NULL PRIMARY KEY,
    DieCount INTEGER NOT NULL,
    DieId INTEGER NOT NULL REFERENCES [types Dice] (Id),
    Modifier INTEGER NOT NULL DEFAULT 0
);
