-- Roll tables: a row fires when a d% roll lies in Min..Max. Tables by item class carry one
-- pair of bounds per class (MinorMin/MinorMax, MedMin/MedMax, MajorMin/MajorMax); a row that
-- a class never rolls leaves that pair empty. Dice are DieCount dice of DieType sides.

-- Treasure per encounter level.
CREATE TABLE [Table 7-4 Treasure Coins] (
    Level INTEGER NOT NULL,
    Min INTEGER NOT NULL,
    Max INTEGER NOT NULL,
    DieCount INTEGER NOT NULL DEFAULT 0,
    DieType INTEGER NOT NULL DEFAULT 4 REFERENCES [types Dice] (Id),
    CoinCount INTEGER NOT NULL DEFAULT 0,
    CoinType INTEGER NOT NULL DEFAULT 2 REFERENCES [info Coin] (Id),
    PRIMARY KEY (Level, Min)
);

-- TreasureType: 3 gems, 4 art objects.
CREATE TABLE [Table 7-4 Treasure Goods] (
    Level INTEGER NOT NULL,
    Min INTEGER NOT NULL,
    Max INTEGER NOT NULL,
    DieCount INTEGER NOT NULL DEFAULT 0,
    DieType INTEGER NOT NULL DEFAULT 4 REFERENCES [types Dice] (Id),
    TreasureType INTEGER NOT NULL DEFAULT 0,
    PRIMARY KEY (Level, Min)
);

-- TreasureType: 5 mundane, 6 minor, 7 medium, 8 major magic items.
CREATE TABLE [Table 7-4 Treasure Items] (
    Level INTEGER NOT NULL,
    Min INTEGER NOT NULL,
    Max INTEGER NOT NULL,
    DieCount INTEGER NOT NULL DEFAULT 0,
    DieType INTEGER NOT NULL DEFAULT 4 REFERENCES [types Dice] (Id),
    TreasureType INTEGER NOT NULL DEFAULT 0,
    PRIMARY KEY (Level, Min)
);

-- Major items added to a level 20 hoard for each level above 20.
CREATE TABLE [Table 7-4 Treasure Extra Items] (
    Level INTEGER NOT NULL PRIMARY KEY,
    Count INTEGER NOT NULL
);

-- Value of a gem or art object: dice times CoinCount coins; Category picks the goods.
CREATE TABLE [Table 7-5 Gems] (
    Min INTEGER NOT NULL PRIMARY KEY,
    Max INTEGER NOT NULL,
    DieCount INTEGER NOT NULL,
    DieType INTEGER NOT NULL REFERENCES [types Dice] (Id),
    CoinCount INTEGER NOT NULL,
    CoinType INTEGER NOT NULL DEFAULT 2 REFERENCES [info Coin] (Id),
    Category INTEGER NOT NULL
);

CREATE TABLE [Table 7-6 Art Objects] (
    Min INTEGER NOT NULL PRIMARY KEY,
    Max INTEGER NOT NULL,
    DieCount INTEGER NOT NULL,
    DieType INTEGER NOT NULL REFERENCES [types Dice] (Id),
    CoinCount INTEGER NOT NULL,
    CoinType INTEGER NOT NULL DEFAULT 2 REFERENCES [info Coin] (Id),
    Category INTEGER NOT NULL
);

-- MundaneType: 1 weapon, 2 armor, 3 shield, 4 goods (the dice give the count), 5 mighty
-- composite shortbow, 6 mighty composite longbow, 7 common melee weapon, 8 uncommon weapon,
-- 9 common ranged weapon. SizeTable names a table that rolls the item's size.
CREATE TABLE [Table 7-7 Mundane Items] (
    Min INTEGER NOT NULL PRIMARY KEY,
    Max INTEGER NOT NULL,
    MundaneType INTEGER NOT NULL,
    IsMasterwork INTEGER NOT NULL DEFAULT 0,
    DieCount INTEGER NOT NULL DEFAULT 1,
    DieType INTEGER NOT NULL DEFAULT 1 REFERENCES [types Dice] (Id),
    WeaponId VARCHAR(38) REFERENCES [info Weapons] (Guid),
    ArmorId VARCHAR(38) REFERENCES [info Armor] (Guid),
    ShieldId VARCHAR(38) REFERENCES [info Shield] (Guid),
    GoodsId VARCHAR(38) REFERENCES [info Goods] (Guid),
    SizeTable VARCHAR(100)
);

-- The size of mundane armor in a treasure, named by SizeTable in [Table 7-7 Mundane Items].
CREATE TABLE [Table 7-7 Armor Size] (
    Min INTEGER NOT NULL PRIMARY KEY,
    Max INTEGER NOT NULL,
    SizeId INTEGER NOT NULL REFERENCES [info Size] (Id)
);

CREATE TABLE [Table 7-8 Random Mighty Composite Shortbow] (
    Min INTEGER NOT NULL PRIMARY KEY,
    Max INTEGER NOT NULL,
    ItemId VARCHAR(38) NOT NULL REFERENCES [info Weapons] (Guid),
    IsMasterwork INTEGER NOT NULL DEFAULT 0
);

CREATE TABLE [Table 7-9 Random Mighty Composite Longbow] (
    Min INTEGER NOT NULL PRIMARY KEY,
    Max INTEGER NOT NULL,
    ItemId VARCHAR(38) NOT NULL REFERENCES [info Weapons] (Guid),
    IsMasterwork INTEGER NOT NULL DEFAULT 0
);

-- MagicItemType: 1 armor or shield, 2 weapon, 3 potion, 4 ring, 5 rod, 6 scroll, 7 staff,
-- 8 wand, 9 wondrous item.
CREATE TABLE [Table 8-2 Random Magic Items Generation] (
    MinorMin INTEGER,
    MinorMax INTEGER,
    MedMin INTEGER,
    MedMax INTEGER,
    MajorMin INTEGER,
    MajorMax INTEGER,
    MagicItemType INTEGER NOT NULL PRIMARY KEY
);

-- ItemType: 1 armor, 2 shield, 3 specific armor, 4 specific shield, 5 special ability and
-- roll again. The rows also price an enhancement bonus (ItemType 1 or 2, Bonus) in CoinCount;
-- price rows that are never rolled leave the bounds empty.
CREATE TABLE [Table 8-3 Armor and Shields] (
    MinorMin INTEGER,
    MinorMax INTEGER,
    MedMin INTEGER,
    MedMax INTEGER,
    MajorMin INTEGER,
    MajorMax INTEGER,
    ItemType INTEGER NOT NULL,
    Bonus INTEGER NOT NULL DEFAULT 0,
    CoinCount INTEGER NOT NULL DEFAULT 0,
    CoinType INTEGER NOT NULL DEFAULT 2 REFERENCES [info Coin] (Id),
    PRIMARY KEY (ItemType, Bonus)
);

CREATE TABLE [Table 8-4 Random Armor Type] (
    Min INTEGER NOT NULL PRIMARY KEY,
    Max INTEGER NOT NULL,
    ItemId VARCHAR(38) NOT NULL REFERENCES [info Armor] (Guid),
    IsMasterwork INTEGER NOT NULL DEFAULT 1
);

CREATE TABLE [Table 8-5 Random Shield Type] (
    Min INTEGER NOT NULL PRIMARY KEY,
    Max INTEGER NOT NULL,
    ItemId VARCHAR(38) NOT NULL REFERENCES [info Shield] (Guid),
    IsMasterwork INTEGER NOT NULL DEFAULT 1
);

-- Type: row of [Table 8-6 and 8-7 Special Abilities] (0: none); Special 2: roll twice more.
CREATE TABLE [Table 8-6 Armor Special Abilities] (
    MinorMin INTEGER,
    MinorMax INTEGER,
    MedMin INTEGER,
    MedMax INTEGER,
    MajorMin INTEGER,
    MajorMax INTEGER,
    Type INTEGER NOT NULL DEFAULT 0,
    Special INTEGER NOT NULL DEFAULT 0
);

CREATE TABLE [Table 8-7 Shield Special Abilities] (
    MinorMin INTEGER,
    MinorMax INTEGER,
    MedMin INTEGER,
    MedMax INTEGER,
    MajorMin INTEGER,
    MajorMax INTEGER,
    Type INTEGER NOT NULL DEFAULT 0,
    Special INTEGER NOT NULL DEFAULT 0
);

CREATE TABLE [Table 8-8 Specific Armors] (
    MinorMin INTEGER,
    MinorMax INTEGER,
    MedMin INTEGER,
    MedMax INTEGER,
    MajorMin INTEGER,
    MajorMax INTEGER,
    ItemId VARCHAR(38) NOT NULL PRIMARY KEY REFERENCES [info Armor] (Guid)
);

CREATE TABLE [Table 8-9 Specific Shields] (
    MinorMin INTEGER,
    MinorMax INTEGER,
    MedMin INTEGER,
    MedMax INTEGER,
    MajorMin INTEGER,
    MajorMax INTEGER,
    ItemId VARCHAR(38) NOT NULL PRIMARY KEY REFERENCES [info Shield] (Guid)
);

-- Flags: 1 armor, 2 shield, 3 both. Bonus: the enhancement it counts as for the price;
-- abilities priced in coins carry CoinCount instead. Abilities of one Category replace each
-- other by Rank.
CREATE TABLE [Table 8-6 and 8-7 Special Abilities] (
    Id INTEGER NOT NULL PRIMARY KEY,
    Name VARCHAR(100) NOT NULL,
    Bonus INTEGER NOT NULL DEFAULT 0,
    CoinCount INTEGER NOT NULL DEFAULT 0,
    CoinType INTEGER NOT NULL DEFAULT 2 REFERENCES [info Coin] (Id),
    Category INTEGER NOT NULL DEFAULT 0,
    Rank INTEGER NOT NULL DEFAULT 0,
    Flags INTEGER NOT NULL DEFAULT 3
);

-- ItemType: 1 weapon, 2 specific weapon, 3 special ability and roll again; price rows as in
-- [Table 8-3 Armor and Shields].
CREATE TABLE [Table 8-10 Weapons] (
    MinorMin INTEGER,
    MinorMax INTEGER,
    MedMin INTEGER,
    MedMax INTEGER,
    MajorMin INTEGER,
    MajorMax INTEGER,
    ItemType INTEGER NOT NULL,
    Bonus INTEGER NOT NULL DEFAULT 0,
    CoinCount INTEGER NOT NULL DEFAULT 0,
    CoinType INTEGER NOT NULL DEFAULT 2 REFERENCES [info Coin] (Id),
    PRIMARY KEY (ItemType, Bonus)
);

-- ItemType: 7 common melee, 8 uncommon, 9 common ranged.
CREATE TABLE [Table 8-11 Weapon Type Determination] (
    Min INTEGER NOT NULL PRIMARY KEY,
    Max INTEGER NOT NULL,
    ItemType INTEGER NOT NULL
);

CREATE TABLE [Table 8-12 Common Melee Weapons] (
    Min INTEGER NOT NULL PRIMARY KEY,
    Max INTEGER NOT NULL,
    ItemId VARCHAR(38) NOT NULL REFERENCES [info Weapons] (Guid),
    IsMasterwork INTEGER NOT NULL DEFAULT 1
);

CREATE TABLE [Table 8-13 Uncommon Weapons] (
    Min INTEGER NOT NULL PRIMARY KEY,
    Max INTEGER NOT NULL,
    ItemId VARCHAR(38) NOT NULL REFERENCES [info Weapons] (Guid),
    IsMasterwork INTEGER NOT NULL DEFAULT 1
);

-- PickAmmunition 1: roll the ammunition on the Sub table instead.
CREATE TABLE [Table 8-14 Common Ranged Weapons] (
    Min INTEGER NOT NULL PRIMARY KEY,
    Max INTEGER NOT NULL,
    ItemId VARCHAR(38) REFERENCES [info Weapons] (Guid),
    IsMasterwork INTEGER NOT NULL DEFAULT 1,
    PickAmmunition INTEGER NOT NULL DEFAULT 0
);

CREATE TABLE [Table 8-14 Common Ranged Weapons Sub] (
    Min INTEGER NOT NULL PRIMARY KEY,
    Max INTEGER NOT NULL,
    ItemId VARCHAR(38) NOT NULL REFERENCES [info Weapons] (Guid),
    IsMasterwork INTEGER NOT NULL DEFAULT 1
);

-- Type: row of [Table 8-15 and 8-16 Special Abilities] (0: none); Special 2: roll twice more.
CREATE TABLE [Table 8-15 Melee Weapon Special Abilities] (
    MinorMin INTEGER,
    MinorMax INTEGER,
    MedMin INTEGER,
    MedMax INTEGER,
    MajorMin INTEGER,
    MajorMax INTEGER,
    Type INTEGER NOT NULL DEFAULT 0,
    Special INTEGER NOT NULL DEFAULT 0
);

CREATE TABLE [Table 8-16 Ranged Weapon Special Abilities] (
    MinorMin INTEGER,
    MinorMax INTEGER,
    MedMin INTEGER,
    MedMax INTEGER,
    MajorMin INTEGER,
    MajorMax INTEGER,
    Type INTEGER NOT NULL DEFAULT 0,
    Special INTEGER NOT NULL DEFAULT 0
);

CREATE TABLE [Table 8-17 Specific Weapons] (
    MinorMin INTEGER,
    MinorMax INTEGER,
    MedMin INTEGER,
    MedMax INTEGER,
    MajorMin INTEGER,
    MajorMax INTEGER,
    ItemId VARCHAR(38) NOT NULL PRIMARY KEY REFERENCES [info Weapons] (Guid)
);

-- Flags: 1 melee, 2 ranged, 3 both. WeaponType: damage type bits the base weapon must share
-- (0 any). Abilities whose Category is another's OppositeCategory exclude each other.
CREATE TABLE [Table 8-15 and 8-16 Special Abilities] (
    Id INTEGER NOT NULL PRIMARY KEY,
    Name VARCHAR(100) NOT NULL,
    Bonus INTEGER NOT NULL DEFAULT 0,
    CoinCount INTEGER NOT NULL DEFAULT 0,
    CoinType INTEGER NOT NULL DEFAULT 2 REFERENCES [info Coin] (Id),
    Category INTEGER NOT NULL DEFAULT 0,
    Rank INTEGER NOT NULL DEFAULT 0,
    OppositeCategory INTEGER NOT NULL DEFAULT 0,
    WeaponType INTEGER NOT NULL DEFAULT 0,
    Flags INTEGER NOT NULL DEFAULT 3
);

-- Id is the foe's identity; AlignId an alignment that narrows it (0 none).
CREATE TABLE [Table ZKB186 Designated Foe] (
    Min INTEGER NOT NULL PRIMARY KEY,
    Max INTEGER NOT NULL,
    Id VARCHAR(38) NOT NULL,
    Name VARCHAR(100) NOT NULL,
    AlignId INTEGER NOT NULL DEFAULT 0
);

-- PotionType 1: a spell (SpellId, CasterLevel, CasterClass); 2: an item of [info Potions].
CREATE TABLE [Table 8-18 Potions] (
    MinorMin INTEGER,
    MinorMax INTEGER,
    MedMin INTEGER,
    MedMax INTEGER,
    MajorMin INTEGER,
    MajorMax INTEGER,
    PotionType INTEGER NOT NULL DEFAULT 1,
    SpellId VARCHAR(38) REFERENCES [info Spell] (Guid),
    CasterLevel INTEGER NOT NULL DEFAULT 0,
    CasterClass VARCHAR(38) REFERENCES [info Class] (Guid),
    SpecificId VARCHAR(38) REFERENCES [info Potions] (Guid)
);

CREATE TABLE [Table 8-19 Rings] (
    MinorMin INTEGER,
    MinorMax INTEGER,
    MedMin INTEGER,
    MedMax INTEGER,
    MajorMin INTEGER,
    MajorMax INTEGER,
    RingId VARCHAR(38) NOT NULL PRIMARY KEY REFERENCES [info Rings] (Guid)
);

CREATE TABLE [Table 8-20 Rods] (
    MinorMin INTEGER,
    MinorMax INTEGER,
    MedMin INTEGER,
    MedMax INTEGER,
    MajorMin INTEGER,
    MajorMax INTEGER,
    ItemId VARCHAR(38) NOT NULL PRIMARY KEY REFERENCES [info Rods] (Guid)
);

-- CastType: 1 arcane, 2 divine.
CREATE TABLE [Table 8-21 Scroll Types] (
    Min INTEGER NOT NULL PRIMARY KEY,
    Max INTEGER NOT NULL,
    CastType INTEGER NOT NULL REFERENCES [types Spell Caster] (Id)
);

-- MagicType is the item quality: 1 minor, 2 medium, 3 major.
CREATE TABLE [Table 8-22 Number of Spells on a Scroll] (
    MagicType INTEGER NOT NULL PRIMARY KEY,
    DieCount INTEGER NOT NULL,
    DieType INTEGER NOT NULL REFERENCES [types Dice] (Id)
);

CREATE TABLE [Table 8-23 Scroll Spell Level] (
    MinorMin INTEGER,
    MinorMax INTEGER,
    MedMin INTEGER,
    MedMax INTEGER,
    MajorMin INTEGER,
    MajorMax INTEGER,
    Level INTEGER NOT NULL PRIMARY KEY
);

CREATE TABLE [Table 8-24 Arcane Spell Scrolls] (
    Level INTEGER NOT NULL,
    Min INTEGER NOT NULL,
    Max INTEGER NOT NULL,
    SpellId VARCHAR(38) NOT NULL REFERENCES [info Spell] (Guid),
    CasterClass VARCHAR(38) NOT NULL REFERENCES [info Class] (Guid),
    PRIMARY KEY (Level, Min)
);

CREATE TABLE [Table 8-25 Divine Spell Scrolls] (
    Level INTEGER NOT NULL,
    Min INTEGER NOT NULL,
    Max INTEGER NOT NULL,
    SpellId VARCHAR(38) NOT NULL REFERENCES [info Spell] (Guid),
    CasterClass VARCHAR(38) NOT NULL REFERENCES [info Class] (Guid),
    PRIMARY KEY (Level, Min)
);

CREATE TABLE [Table 8-26 Staffs] (
    MinorMin INTEGER,
    MinorMax INTEGER,
    MedMin INTEGER,
    MedMax INTEGER,
    MajorMin INTEGER,
    MajorMax INTEGER,
    ItemId VARCHAR(38) NOT NULL PRIMARY KEY REFERENCES [info Staffs] (Guid)
);

-- OvrCasterLevel, OvrLevel: caster level and spell level when they differ from the lowest
-- (0: take the lowest).
CREATE TABLE [Table 8-27 Wands] (
    MinorMin INTEGER,
    MinorMax INTEGER,
    MedMin INTEGER,
    MedMax INTEGER,
    MajorMin INTEGER,
    MajorMax INTEGER,
    SpellId VARCHAR(38) NOT NULL REFERENCES [info Spell] (Guid),
    CasterClass VARCHAR(38) NOT NULL REFERENCES [info Class] (Guid),
    OvrCasterLevel INTEGER NOT NULL DEFAULT 0,
    OvrLevel INTEGER NOT NULL DEFAULT 0
);

CREATE TABLE [Table 8-28 Minor Wondrous Items] (
    Min INTEGER NOT NULL PRIMARY KEY,
    Max INTEGER NOT NULL,
    Id VARCHAR(38) NOT NULL REFERENCES [info Wondrous Items] (Guid)
);

CREATE TABLE [Table 8-29 Medium Wondrous Items] (
    Min INTEGER NOT NULL PRIMARY KEY,
    Max INTEGER NOT NULL,
    Id VARCHAR(38) NOT NULL REFERENCES [info Wondrous Items] (Guid)
);

CREATE TABLE [Table 8-30 Major Wondrous Items] (
    Min INTEGER NOT NULL PRIMARY KEY,
    Max INTEGER NOT NULL,
    Id VARCHAR(38) NOT NULL REFERENCES [info Wondrous Items] (Guid)
);

-- Scores of an intelligent item: two favored rolls and one normal roll; communication,
-- reading, and how many primary abilities and extraordinary powers it gets.
CREATE TABLE [Table 8-31 Item] (
    Min INTEGER NOT NULL PRIMARY KEY,
    Max INTEGER NOT NULL,
    FavoredDieCount INTEGER NOT NULL,
    FavoredDieType INTEGER NOT NULL REFERENCES [types Dice] (Id),
    FavoredDieMod INTEGER NOT NULL DEFAULT 0,
    NormalDieCount INTEGER NOT NULL,
    NormalDieType INTEGER NOT NULL REFERENCES [types Dice] (Id),
    Communication1 INTEGER NOT NULL DEFAULT 0,
    Communication2 INTEGER NOT NULL DEFAULT 0,
    CanReadLanguages INTEGER NOT NULL DEFAULT 0,
    CanReadMagic INTEGER NOT NULL DEFAULT 0,
    PrimaryAbilities INTEGER NOT NULL DEFAULT 0,
    Powers INTEGER NOT NULL DEFAULT 0,
    CoinCount INTEGER NOT NULL DEFAULT 0,
    CoinType INTEGER NOT NULL DEFAULT 2 REFERENCES [info Coin] (Id)
);

CREATE TABLE [Table 8-32 Item Alignment] (
    Min INTEGER NOT NULL PRIMARY KEY,
    Max INTEGER NOT NULL,
    AlignmentId INTEGER NOT NULL REFERENCES [info Alignment] (Id)
);

-- Id 0 with Special 2: roll twice more; Special 3: roll an extraordinary power instead.
CREATE TABLE [Table 8-33 Intelligent Item Primary Abilities] (
    Min INTEGER NOT NULL PRIMARY KEY,
    Max INTEGER NOT NULL,
    Id INTEGER NOT NULL DEFAULT 0,
    Special INTEGER NOT NULL DEFAULT 0
);

-- Special 2: roll twice more; Special 4: the item also has a purpose.
CREATE TABLE [Table 8-34 Intelligent Item Extraordinary Powers] (
    Min INTEGER NOT NULL PRIMARY KEY,
    Max INTEGER NOT NULL,
    Id INTEGER NOT NULL DEFAULT 0,
    Special INTEGER NOT NULL DEFAULT 0
);

CREATE TABLE [Table 8-35 Intelligent Item Purposes] (
    Min INTEGER NOT NULL PRIMARY KEY,
    Max INTEGER NOT NULL,
    Id INTEGER NOT NULL REFERENCES [types Intelligent Item Purposes] (Id)
);

CREATE TABLE [Table 8-36 Intelligent Item Special Purpose Powers] (
    Min INTEGER NOT NULL PRIMARY KEY,
    Max INTEGER NOT NULL,
    Id INTEGER NOT NULL REFERENCES [types Intelligent Item Special Purpose Powers] (Id)
);

-- Id is the curse type (7: a specific cursed item instead).
CREATE TABLE [Table 8-38 Cursed Item Common Curses] (
    Min INTEGER NOT NULL PRIMARY KEY,
    Max INTEGER NOT NULL,
    Id INTEGER NOT NULL REFERENCES [types Curses] (Id)
);

-- ItemType (as items count them): 0 weapon, 1 armor, 2 shield, 5 potion, 6 ring, 11 wondrous.
CREATE TABLE [Table 8-39 Specific Cursed Items] (
    Min INTEGER NOT NULL PRIMARY KEY,
    Max INTEGER NOT NULL,
    Name VARCHAR(100) NOT NULL,
    ItemType INTEGER NOT NULL,
    WeaponId VARCHAR(38) REFERENCES [info Weapons] (Guid),
    ArmorId VARCHAR(38) REFERENCES [info Armor] (Guid),
    ShieldId VARCHAR(38) REFERENCES [info Shield] (Guid),
    PotionId VARCHAR(38) REFERENCES [info Potions] (Guid),
    RingId VARCHAR(38) REFERENCES [info Rings] (Guid),
    WondrousId VARCHAR(38) REFERENCES [info Wondrous Items] (Guid)
);

CREATE TABLE [Table ZKB231 Situation] (
    Min INTEGER NOT NULL PRIMARY KEY,
    Max INTEGER NOT NULL,
    Id INTEGER NOT NULL REFERENCES [types Curses Dependent] (Id)
);

CREATE TABLE [Table ZKB232 Drawback] (
    Min INTEGER NOT NULL PRIMARY KEY,
    Max INTEGER NOT NULL,
    Id INTEGER NOT NULL REFERENCES [types Curses Drawback] (Id)
);

-- Random starting age: RaceId is the race family, Category the class's age category.
CREATE TABLE [Table 6-4 KT Random Starting Ages] (
    RaceId INTEGER NOT NULL REFERENCES [types Race Family] (Id),
    Category INTEGER NOT NULL,
    DieCount INTEGER NOT NULL,
    DieType INTEGER NOT NULL REFERENCES [types Dice] (Id),
    PRIMARY KEY (RaceId, Category)
);

-- Id 1 to 4 (a d4); High, Medium, Low each name an ability (3 Int, 4 Wis, 5 Cha).
CREATE TABLE [Table ZKB228 Random Intelligent Scores] (
    Id INTEGER NOT NULL PRIMARY KEY,
    High INTEGER NOT NULL,
    Medium INTEGER NOT NULL,
    Low INTEGER NOT NULL
);

-- Fixed chances from rule text.

-- Chance in percent that an item of a type (Id) and range (SubId) is intelligent.
CREATE TABLE [Text ZKB228 Item Randomly Intelligent] (
    Id INTEGER NOT NULL,
    SubId INTEGER NOT NULL DEFAULT 0,
    Chance INTEGER NOT NULL,
    PRIMARY KEY (Id, SubId)
);

-- Id is the kind of intermittent functioning, rolled on Min..Max.
CREATE TABLE [Text ZKB231 Curses Intermittent] (
    Id INTEGER NOT NULL PRIMARY KEY REFERENCES [types Curses Intermittent] (Id),
    Min INTEGER NOT NULL,
    Max INTEGER NOT NULL,
    Chance INTEGER NOT NULL DEFAULT 0
);

-- Chance in percent that an item of a type (Id) is cursed.
CREATE TABLE [Text ZKB231 Item Randomly Cursed] (
    Id INTEGER NOT NULL PRIMARY KEY,
    Chance INTEGER NOT NULL
);
