#!/usr/bin/env python3
"""Writes rule row files (data/rules/rows/*.tsv) from the open 3.5 rules tables.

Run by hand when the converted tables change; the build reads only the row files.

    tools/srd2rows/srd2rows.py SRD_DIR data/rules/rows

Only names and numbers are taken over. Where the tables leave a fact out (class weapon
lists, fighter bonus feats, synergies, starting gold), it is written down here.
"""

import csv
import os
import re
import sys

SRD = sys.argv[1] if len(sys.argv) > 1 else '../shared/srd'
OUT = sys.argv[2] if len(sys.argv) > 2 else 'data/rules/rows'
RAW = os.path.join(SRD, 'raw', 'dnd-srd-35')
TABLES = os.path.join(SRD, 'tables')

ABILITIES = {'str': 0, 'dex': 1, 'con': 2, 'int': 3, 'wis': 4, 'cha': 5}
ABILITY_WORDS = {'strength': 0, 'dexterity': 1, 'constitution': 2, 'intelligence': 3,
                 'wisdom': 4, 'charisma': 5, 'str': 0, 'dex': 1, 'con': 2, 'int': 3,
                 'wis': 4, 'cha': 5}

# Alignment ids are bit sets: lawful 1, neutral 2, chaotic 4; good 8, neutral 16, evil 32.
ALIGNMENTS = {'lawful good': 9, 'neutral good': 10, 'chaotic good': 12, 'lawful neutral': 17,
              'neutral': 18, 'chaotic neutral': 20, 'lawful evil': 33, 'neutral evil': 34,
              'chaotic evil': 36}

# Rows that rules code compares with by GUID.
FIXED_CLASSES = {
    'Cleric': '{2F44209F-DA52-4037-83BB-7DDFD24D4CE1}',
    'Wizard': '{DC103390-3378-411F-9A3A-CAB0CFD00B68}',
    'Sorcerer': '{46FBFE80-C7CE-4BEA-B211-CE668C73ED38}',
    'Monk': '{AEF68B92-24C2-4C29-A201-C916A7E2024E}',
    'Paladin': '{369261F4-1D0C-473F-B053-59D862213469}',
    'Ranger': '{E1B6DCA8-1F86-4FA7-931F-A6EA20709364}',
    'Rogue': '{D6BD23C8-0DC0-4510-91C4-4A4F7126F083}',
    'Bard': '{C5CFC8E8-2BA1-490F-AEDB-8142D07B8D22}',
    'Blackguard': '{5B843E97-F701-44F4-92F9-CCAB92220BBA}',
    'Loremaster': '{B2DD6C2B-0750-43FB-8BF1-D349A570E8DF}',
    'Barbarian': '{BB5836F4-5ACE-4886-8FC7-2FC12DA105A0}',
    'Druid': '{FBAC04C7-057E-4E2C-AF8F-EC73605904A8}',
    'Dwarven Defender': '{9329A6B1-A322-48D7-9A5F-DC8A87654128}',
    'Arcane Archer': '{07C8B6F1-8394-4B4A-AB08-0AB2313D88E9}',
    'Humanoid': '{22CAEBD6-5489-4909-9F0C-97B46DF0AEA6}',
}
# Humanoids pay the plain price for armor and weapons of their size; the fixed GUID of that
# rule names a class of its own, so the humanoid type appears twice: as the type a new race
# starts with, and as the type of player races.
HUMANOID_PLAIN_PRICE = '{98A55D06-667B-4897-9F3B-E643FBE82CAD}'

FIXED_FEATS = {
    'Armor Proficiency (Light)': '{E581206B-AD49-46A2-8018-784314A1248A}',
    'Armor Proficiency (Medium)': '{6B1FCE75-3D26-429F-81F1-80833960C32D}',
    'Armor Proficiency (Heavy)': '{044A50A4-4204-4312-92B9-7E212BAADC28}',
    'Shield Proficiency': '{A4D4790D-A6ED-4FEA-A88E-7BDD46052D99}',
    'Simple Weapon Proficiency': '{96903E21-156F-4F3D-92F4-67DA5ED4EE0F}',
    'Martial Weapon Proficiency': '{09848A9A-458C-47C8-A419-B361F5540611}',
    'Exotic Weapon Proficiency': '{BF016F1C-A08B-4980-9B0C-0A6407AFD18F}',
    'Improved Critical': '{AB454B65-2A0E-492A-9794-DD168A22CDBE}',
    'Far Shot': '{FAB50AE8-84BA-42D3-8048-D08144845E55}',
    'Weapon Finesse': '{CAADBD12-FF01-48E1-A1D4-217D58312AD3}',
    'Weapon Specialization': '{0AEE3129-CDC2-493D-A184-1E58DCC7C490}',
    'Weapon Focus': '{684F1421-B863-476A-A3F3-2871910BE259}',
    'Skill Focus': '{97ABBF44-222C-4F8D-8B7E-E1F64703806F}',
    'Spell Focus': '{8580002B-F168-4E1F-ACC1-3A7747BF2821}',
    'Improved Two-Weapon Fighting': '{787EC485-5504-490A-BBD5-60A2E1A14B77}',
    'Multiattack': '{FB29E4DF-9EB7-4925-ACBC-E70931232E27}',
    'Two-Weapon Fighting': '{D14EB75C-9E8F-4D88-8075-390D47BDF6B0}',
    'Multiweapon Fighting': '{47D95450-2E41-477D-88C3-B49CB60568F4}',
}

FIXED_SKILLS = {
    'Speak Language': '{2B86EDD4-618D-423D-9256-8DFBD3C7D88B}',
    'Literacy': '{ECC06A6C-CE33-4842-BACC-B2F18A9713C3}',
    'Knowledge': '{D515ECE3-0A1F-43A8-9485-F43F9EBB1615}',
}

FIXED_WEAPONS = {
    'Unarmed strike': '{C1A1E4F7-8D20-4CF7-A9A9-4D9DA567A6AF}',
    'Rapier': '{D68A9C21-C5C1-4620-B2B0-9CD33AD415CA}',
    'Chain, spiked': '{0EF77A23-387A-428F-82BE-80D6AF96BAA2}',
}

ROWS = {}


def table(name, header, comment=None):
    ROWS[name] = {'header': header, 'rows': [], 'comment': comment}
    return ROWS[name]['rows']


def write_all():
    os.makedirs(OUT, exist_ok=True)
    for name, t in ROWS.items():
        lines = []
        if t['comment']:
            lines += ['# ' + c for c in t['comment'].split('\n')]
        lines.append('\t'.join(t['header']))
        for row in t['rows']:
            cells = ['' if v is None else str(v) for v in row]
            assert len(cells) == len(t['header']), (name, row)
            lines.append('\t'.join(' '.join(c.split()) for c in cells))
        with open(os.path.join(OUT, name + '.tsv'), 'w') as f:
            f.write('\n'.join(lines) + '\n')


def read(path):
    with open(path, newline='') as f:
        return list(csv.DictReader(f))


def read_rows(path):
    with open(path, newline='') as f:
        return list(csv.reader(f))


def num(text, default=0):
    m = re.search(r'[+-]?\d+', text or '')
    return int(m.group()) if m else default


def title(text):
    return ' '.join(w if w.isupper() else w[:1].upper() + w[1:] for w in text.split(' '))


# ---------------------------------------------------------------- skills

SUBSKILL_SKILLS = ('Craft', 'Knowledge', 'Perform', 'Profession')


def skills():
    rows = table('info Skill', ['Id', 'Guid', 'Name', 'StatId', 'IsMulti', 'Untrain', 'ACPen'],
                 'StatId: ability index. IsMulti: the skill has sub-skills. Untrain: usable untrained.')
    subs = table('info Skill Sub', ['Guid', 'SubGuid', 'Name'],
                 'Guid names the parent skill; the sub-skill GUIDs derive from "skill/sub-skill".')
    seen = set()
    names = []
    for s in read(os.path.join(RAW, 'skill.csv')):
        if s['name'] in seen:
            continue
        seen.add(s['name'])
        names.append(s)
    names.append({'name': 'Literacy', 'key_ability': '', 'trained': 'No', 'armor_check': 'No',
                  'subtype': ''})
    names.sort(key=lambda s: s['name'])
    for i, s in enumerate(names, 1):
        name = s['name']
        multi = name in SUBSKILL_SKILLS
        rows.append([i, FIXED_SKILLS.get(name, ''), name,
                     ABILITIES.get(s['key_ability'].lower(), -1), int(multi),
                     int(s['trained'] == 'No'), int(s['armor_check'] == 'Yes')])
        if multi:
            for sub in s['subtype'].split(','):
                sub = sub.strip()
                if sub:
                    subs.append([name, '', title(sub)])
    return [r[2] for r in rows]


SYNERGIES = [
    ('Bluff', '', 'Diplomacy', ''), ('Bluff', '', 'Intimidate', ''),
    ('Bluff', '', 'Sleight of Hand', ''), ('Handle Animal', '', 'Ride', ''),
    ('Jump', '', 'Tumble', ''), ('Knowledge', 'Arcana', 'Spellcraft', ''),
    ('Knowledge', 'Local', 'Gather Information', ''), ('Knowledge', 'Nobility and Royalty', 'Diplomacy', ''),
    ('Sense Motive', '', 'Diplomacy', ''), ('Survival', '', 'Knowledge', 'Nature'),
    ('Tumble', '', 'Balance', ''), ('Tumble', '', 'Jump', ''),
    ('Escape Artist', '', 'Use Rope', ''), ('Use Rope', '', 'Climb', ''),
    ('Use Rope', '', 'Escape Artist', ''), ('Decipher Script', '', 'Use Magic Device', ''),
    ('Spellcraft', '', 'Use Magic Device', ''), ('Use Magic Device', '', 'Spellcraft', ''),
    ('Search', '', 'Survival', ''), ('Knowledge', 'Nature', 'Survival', ''),
    ('Knowledge', 'Dungeoneering', 'Survival', ''), ('Knowledge', 'Geography', 'Survival', ''),
    ('Knowledge', 'The Planes', 'Survival', ''), ('Knowledge', 'Architecture and Engineering', 'Search', ''),
]


def synergies():
    rows = table('info Skill Bonuses Synergy',
                 ['SourceSkill', 'SourceSubSkill', 'ReqRanks', 'TargetSkill', 'TargetSubSkill', 'Bonus'],
                 '5 ranks in the source give +2 on the target. Several of these apply only in a\n'
                 'situation (rope bindings, scrolls, tracking, getting lost); they are listed all the same.')
    for src, srcsub, dst, dstsub in SYNERGIES:
        rows.append([src, f'Knowledge/{srcsub}' if srcsub else '', 5, dst,
                     f'Knowledge/{dstsub}' if dstsub else '', 2])
    size = table('info Skill Bonuses Size', ['SkillId', 'SizeId', 'Bonus'])
    for size_name, bonus in [('Fine', 16), ('Diminutive', 12), ('Tiny', 8), ('Small', 4),
                             ('Large', -4), ('Huge', -8), ('Gargantuan', -12), ('Colossal', -16)]:
        size.append(['Hide', size_name, bonus])


# ---------------------------------------------------------------- feats

FEAT_TYPES = {'general': 0, 'item creation': 1, 'metamagic': 2, 'special': 3, 'epic': 4,
              'psionic': 5, 'metapsionic': 6, 'divine': 7, 'wild': 8}
FIGHTER_FEATS = '''Blind-Fight; Combat Expertise; Improved Disarm; Improved Feint; Improved Trip;
Whirlwind Attack; Combat Reflexes; Dodge; Mobility; Spring Attack; Exotic Weapon Proficiency;
Improved Critical; Improved Initiative; Improved Shield Bash; Improved Unarmed Strike;
Deflect Arrows; Improved Grapple; Snatch Arrows; Stunning Fist; Mounted Combat; Mounted Archery;
Ride-By Attack; Spirited Charge; Trample; Point Blank Shot; Far Shot; Precise Shot; Rapid Shot;
Manyshot; Shot on the Run; Improved Precise Shot; Power Attack; Cleave; Great Cleave;
Improved Bull Rush; Improved Overrun; Improved Sunder; Quick Draw; Rapid Reload;
Two-Weapon Fighting; Two-Weapon Defense; Improved Two-Weapon Fighting;
Greater Two-Weapon Fighting; Weapon Finesse; Weapon Focus; Weapon Specialization;
Greater Weapon Focus; Greater Weapon Specialization'''
FEAT_BONUSES = [  # feat, type (2 Fort, 3 Ref, 4 Will, 5 initiative, 6 skill, 7 hit points), data, skill
    ('Great Fortitude', 2, 2, ''), ('Lightning Reflexes', 3, 2, ''), ('Iron Will', 4, 2, ''),
    ('Improved Initiative', 5, 4, ''), ('Toughness', 7, 3, ''), ('Skill Focus', 6, 3, ''),
    ('Acrobatic', 6, 2, 'Jump'), ('Acrobatic', 6, 2, 'Tumble'),
    ('Agile', 6, 2, 'Balance'), ('Agile', 6, 2, 'Escape Artist'),
    ('Alertness', 6, 2, 'Listen'), ('Alertness', 6, 2, 'Spot'),
    ('Animal Affinity', 6, 2, 'Handle Animal'), ('Animal Affinity', 6, 2, 'Ride'),
    ('Athletic', 6, 2, 'Climb'), ('Athletic', 6, 2, 'Swim'),
    ('Deceitful', 6, 2, 'Disguise'), ('Deceitful', 6, 2, 'Forgery'),
    ('Deft Hands', 6, 2, 'Sleight of Hand'), ('Deft Hands', 6, 2, 'Use Rope'),
    ('Diligent', 6, 2, 'Appraise'), ('Diligent', 6, 2, 'Decipher Script'),
    ('Investigator', 6, 2, 'Gather Information'), ('Investigator', 6, 2, 'Search'),
    ('Magical Aptitude', 6, 2, 'Spellcraft'), ('Magical Aptitude', 6, 2, 'Use Magic Device'),
    ('Negotiator', 6, 2, 'Diplomacy'), ('Negotiator', 6, 2, 'Sense Motive'),
    ('Nimble Fingers', 6, 2, 'Disable Device'), ('Nimble Fingers', 6, 2, 'Open Lock'),
    ('Persuasive', 6, 2, 'Bluff'), ('Persuasive', 6, 2, 'Intimidate'),
    ('Self-Sufficient', 6, 2, 'Heal'), ('Self-Sufficient', 6, 2, 'Survival'),
    ('Stealthy', 6, 2, 'Hide'), ('Stealthy', 6, 2, 'Move Silently'),
]


def feat_target(name, choice):
    c = (choice + ' ' + name).lower()
    if name in ('Skill Focus',) or 'skill' in choice.lower():
        return 2
    if 'spell focus' in name.lower() or 'school' in choice.lower():
        return 3
    if 'weapon' in c or name in ('Improved Critical',):
        return 1 if name not in ('Two-Weapon Fighting', 'Weapon Finesse', 'Two-Weapon Defense',
                                 'Improved Two-Weapon Fighting', 'Greater Two-Weapon Fighting',
                                 'Multiweapon Fighting', 'Simple Weapon Proficiency',
                                 'Quick Draw') else 0
    return 4 if choice.strip() else 0


def feats(skill_names, class_names):
    raw = [f for f in read(os.path.join(RAW, 'feat.csv')) if f['type'] != 'Type of Feat']
    rows = table('info Feat', ['Guid', 'Name', 'Type', 'StackType', 'Target'],
                 'Type: row of [types Feat]; StackType 1: may be taken again; Target: what a choice names.')
    prereqs = table('info Feat Prerequisites', ['Id', 'Type', 'Data', 'FeatId', 'SkillId', 'AbStat'],
                    'Id is the feat; Type a row of [types Feat Requirement].')
    class_prereqs = table('info Feat Class Prerequisites', ['Id', 'ClassId', 'Level'])
    names = set()
    kept = []
    for f in raw:
        if f['name'] in names:
            continue
        names.add(f['name'])
        kept.append(f)
    lower = {n.lower(): n for n in names}
    skill_lower = {s.lower(): s for s in skill_names}
    untold = 0
    for f in kept:
        types = [t.strip().lower() for t in f['type'].split(',')]
        ftype = 9 if 'MonsterFeats' in f['reference'] else next(
            (FEAT_TYPES[t] for t in types if t != 'general' and t != 'fighter' and t in FEAT_TYPES), 0)
        if 'epic' in types:
            ftype = 4
        rows.append([FIXED_FEATS.get(f['name'], ''), f['name'], ftype,
                     int(f['multiple'] == 'Yes'), feat_target(f['name'], f['choice'])])
        for part in re.split(r',|;| and (?=[A-Z])', f['prerequisite']):
            part = part.strip().rstrip('.').strip()
            if not part:
                continue
            low = part.lower()
            m = re.match(r'^(strength|dexterity|constitution|intelligence|wisdom|charisma|str|dex|con|int|wis|cha) (\d+)', low)
            if m:
                prereqs.append([f['name'], 4, int(m.group(2)), '', '', ABILITY_WORDS[m.group(1)]])
                continue
            m = re.match(r'^base attack bonus \+(\d+)', low)
            if m:
                prereqs.append([f['name'], 2, int(m.group(1)), '', '', -1])
                continue
            m = re.match(r'^caster level (\d+)', low)
            if m:
                prereqs.append([f['name'], 5, int(m.group(1)), '', '', -1])
                continue
            m = re.match(r'^character level (\d+)|^(\d+)(?:st|nd|rd|th)[- ]level character', low)
            if m:
                prereqs.append([f['name'], 9, int(m.group(1) or m.group(2)), '', '', -1])
                continue
            m = re.match(r'^(\w[\w ]*?) level (\d+)', low)
            if m and title(m.group(1)) in class_names:
                class_prereqs.append([f['name'], title(m.group(1)), int(m.group(2))])
                prereqs.append([f['name'], 6, int(m.group(2)), '', '', -1])
                continue
            m = re.match(r'^([\w \'-]+?) (\d+) ranks', low)
            if m and m.group(1) in skill_lower:
                prereqs.append([f['name'], 1, int(m.group(2)), '', skill_lower[m.group(1)], -1])
                continue
            low = re.sub(r' (with|in) (the )?selected weapon$| \(same weapon\)$', '', low)
            base = re.sub(r'\s*\(.*\)$', '', low).strip()
            if low in lower or base in lower:
                prereqs.append([f['name'], 0, 0, lower.get(low) or lower[base], '', -1])
                continue
            prereqs.append([f['name'], 3, 0, '', '', -1])
            untold += 1
    bonuses = table('info Feat Bonuses', ['Id', 'Type', 'Data', 'SkillId'],
                    'Type: 2 Fortitude, 3 Reflex, 4 Will, 5 initiative, 6 a skill (the chosen one\n'
                    'if SkillId is empty), 7 hit points; Data the amount per time the feat is taken.')
    for feat, btype, data, skill in FEAT_BONUSES:
        if feat in names:
            bonuses.append([feat, btype, data, skill])
    fighter = table('info Class Bonus Feats', ['ClassId', 'FeatId'],
                    'Feats a class may take with its bonus feat points.')
    for name in re.split(r';\s*', FIGHTER_FEATS):
        name = name.strip()
        if name in names:
            fighter.append(['Fighter', name])
    for name in ('Improved Grapple', 'Stunning Fist', 'Combat Reflexes', 'Deflect Arrows',
                 'Improved Disarm', 'Improved Trip'):
        fighter.append(['Monk', name])
    for name in ('Spell Mastery', 'Empower Spell', 'Enlarge Spell', 'Extend Spell', 'Heighten Spell',
                 'Maximize Spell', 'Quicken Spell', 'Silent Spell', 'Still Spell', 'Widen Spell',
                 'Brew Potion', 'Craft Magic Arms and Armor', 'Craft Rod', 'Craft Staff', 'Craft Wand',
                 'Craft Wondrous Item', 'Forge Ring', 'Scribe Scroll'):
        if name in names:
            fighter.append(['Wizard', name])
    return names, untold


# ---------------------------------------------------------------- classes

BASE_GOLD = {  # dice count, die, multiplier of a 1st-level character's gold
    'Barbarian': (4, 4, 10), 'Bard': (4, 4, 10), 'Cleric': (5, 4, 10), 'Druid': (2, 4, 10),
    'Fighter': (6, 4, 10), 'Monk': (5, 4, 1), 'Paladin': (6, 4, 10), 'Ranger': (6, 4, 10),
    'Rogue': (5, 4, 10), 'Sorcerer': (3, 4, 10), 'Wizard': (3, 4, 10),
    'Psion': (3, 4, 10), 'Psychic Warrior': (5, 4, 10), 'Soulknife': (5, 4, 10), 'Wilder': (4, 4, 10),
}
AGE_CATEGORY = {'Barbarian': 0, 'Rogue': 0, 'Sorcerer': 0, 'Bard': 1, 'Fighter': 1, 'Paladin': 1,
                'Ranger': 1, 'Cleric': 2, 'Druid': 2, 'Monk': 2, 'Wizard': 2}
# simple, martial, light, medium, heavy armor, shields
PROFICIENCY = {
    'Barbarian': (1, 1, 1, 1, 0, 1), 'Bard': (1, 0, 1, 0, 0, 1), 'Cleric': (1, 0, 1, 1, 1, 1),
    'Druid': (0, 0, 1, 1, 0, 1), 'Fighter': (1, 1, 1, 1, 1, 1), 'Monk': (0, 0, 0, 0, 0, 0),
    'Paladin': (1, 1, 1, 1, 1, 1), 'Ranger': (1, 1, 1, 0, 0, 1), 'Rogue': (1, 0, 1, 0, 0, 0),
    'Sorcerer': (1, 0, 0, 0, 0, 0), 'Wizard': (0, 0, 0, 0, 0, 0), 'Adept': (1, 0, 0, 0, 0, 0),
    'Aristocrat': (1, 1, 1, 1, 1, 1), 'Commoner': (0, 0, 0, 0, 0, 0), 'Expert': (1, 0, 1, 0, 0, 0),
    'Warrior': (1, 1, 1, 1, 1, 1), 'Blackguard': (1, 1, 1, 1, 1, 1),
    'Dwarven Defender': (1, 1, 1, 1, 1, 1), 'Duelist': (1, 1, 1, 0, 0, 0),
    'Arcane Archer': (1, 1, 1, 1, 0, 1), 'Assassin': (1, 0, 1, 0, 0, 0),
    'Eldritch Knight': (1, 1, 0, 0, 0, 0), 'Horizon Walker': (0, 0, 0, 0, 0, 0),
    'Psion': (0, 0, 0, 0, 0, 0), 'Psychic Warrior': (1, 1, 1, 1, 1, 1),
    'Soulknife': (1, 0, 1, 0, 0, 1), 'Wilder': (1, 0, 1, 0, 0, 0),
}
CLASS_WEAPONS = {
    'Bard': 'Longsword; Rapier; Sap; Sword, short; Shortbow; Whip',
    'Druid': 'Club; Dagger; Dart; Quarterstaff; Scimitar; Sickle; Shortspear; Sling; Spear',
    'Monk': 'Club; Crossbow, heavy; Crossbow, light; Dagger; Handaxe; Javelin; Kama; Nunchaku; '
            'Quarterstaff; Sai; Shuriken (5); Siangham; Sling',
    'Rogue': 'Crossbow, hand; Rapier; Sap; Shortbow; Sword, short',
    'Wizard': 'Club; Dagger; Crossbow, heavy; Crossbow, light; Quarterstaff',
    'Assassin': 'Crossbow, hand; Crossbow, light; Crossbow, heavy; Dagger; Dart; Rapier; Sap; '
                'Shortbow; Shortbow, composite; Sword, short',
    'Shadowdancer': 'Club; Crossbow, hand; Crossbow, light; Crossbow, heavy; Dagger; Dart; Mace, light; '
                    'Mace, heavy; Morningstar; Quarterstaff; Rapier; Sap; Shortbow; Shortbow, composite; '
                    'Sword, short',
}
SHORT_NAMES = {'Barbarian': 'Bbn', 'Bard': 'Brd', 'Cleric': 'Clr', 'Druid': 'Drd', 'Fighter': 'Ftr',
               'Monk': 'Mnk', 'Paladin': 'Pal', 'Ranger': 'Rgr', 'Rogue': 'Rog', 'Sorcerer': 'Sor',
               'Wizard': 'Wiz', 'Adept': 'Adp', 'Aristocrat': 'Ari', 'Commoner': 'Com', 'Expert': 'Exp',
               'Warrior': 'War'}
PREPARES = {'Cleric', 'Druid', 'Paladin', 'Ranger', 'Wizard', 'Adept', 'Blackguard'}
KNOWS = {'Bard', 'Sorcerer', 'Assassin'}
CREATURE_TYPES = [  # name, die, attack, good saves (F, R, W), skill points
    ('Aberration', 8, 0.75, (0, 0, 1), 2), ('Animal', 8, 0.75, (1, 1, 0), 2),
    ('Construct', 10, 0.75, (0, 0, 0), 2), ('Dragon', 12, 1.0, (1, 1, 1), 6),
    ('Elemental', 8, 0.75, (0, 1, 0), 2), ('Fey', 6, 0.5, (0, 1, 1), 6),
    ('Giant', 8, 0.75, (1, 0, 0), 2), ('Humanoid', 8, 0.75, (1, 0, 0), 2),
    ('Magical Beast', 10, 1.0, (1, 1, 0), 2), ('Monstrous Humanoid', 8, 1.0, (0, 1, 1), 2),
    ('Ooze', 10, 0.75, (0, 0, 0), 2), ('Outsider', 8, 1.0, (1, 1, 1), 8),
    ('Plant', 8, 0.75, (1, 0, 0), 2), ('Undead', 12, 0.5, (0, 0, 1), 4),
    ('Vermin', 8, 0.75, (1, 0, 0), 2),
]


def slot(text):
    text = (text or '').strip()
    if text in ('', '—', '-'):
        return -1
    m = re.match(r'\d+', text)
    return int(m.group()) if m else -1


LOREMASTER_SECRETS = [  # level + Int modifier, secret, feature type, data
    (1, 'Instant mastery', 0, 4), (2, 'Secret health', 9, 3), (3, 'Secrets of inner strength', 12, 2),
    (4, 'The lore of true stamina', 10, 2), (5, 'Secret knowledge of avoidance', 11, 2),
    (6, 'Weapon trick', 0, 1), (7, 'Dodge trick', 14, 1), (8, 'Applicable knowledge', 2, 1),
    (9, 'Newfound arcana', 0, 1), (10, 'More newfound arcana', 0, 2),
]


def favored_enemies():
    rows = read_rows(os.path.join(TABLES, 'basic-rules-and-legal__character-classes-ii__04_ranger_favored_enemies.csv'))
    names = [cell for row in rows[1:] for cell in row if cell.strip()]
    return sorted(set(names), key=names.index)


def classes(skill_names, feat_names):
    raw = read(os.path.join(RAW, 'class.csv'))
    levels = read(os.path.join(RAW, 'class_table.csv'))
    by_class = {}
    for row in levels:
        by_class.setdefault(row['name'], []).append(row)
    header = ['Id', 'Guid', 'Name', 'ShortName', 'ClassType', 'DieId', 'AgeCat', 'HIFORT', 'HIREF', 'HIWILL',
              'AttackBonusMultiplier', 'SkillPPL', 'BonusFP', 'LevelsForBonusFP', 'ClassSkills',
              'GNumDie', 'GDieId', 'GMultiply', 'CastType', 'SpMinLevel', 'SpLevelMultiplier',
              'LevelForAnimal', 'AnimalType', 'ProSimple', 'ProMartial', 'ProLArmor', 'ProMArmor',
              'ProHArmor', 'ProShield', 'SpAbility', 'SpPrepares', 'SpKnows',
              'BSPOperand1', 'BSPOperator', 'BSPAbilityId', 'BSPAbilityValueType', 'BSPMultiplyHD',
              'BSPBonusPerEHD', 'SPAdvanceType', 'BFPBase', 'BFPPerHD']
    rows = table('info Class', header,
                 'ClassType: 1 base, 2 creature type, 3 NPC, 4 prestige. DieId: sides of the hit die.\n'
                 'AttackBonusMultiplier: base attack per level. HI*: good save progressions.\n'
                 'Creature types: skill points (BSPOperand1 + Int modifier) per hit die, feats 1 + 1 per 3 HD.')
    per_day = table('info Spells Per Day', ['Id', 'SubId'] + [str(i) for i in range(10)] + ['LevelNeedingBonus'],
                    'Spells per day by class (Id) and class level (SubId), without bonus spells; -1: none.\n'
                    'LevelNeedingBonus: the spell level whose only slots come from a high ability score.')
    can_know = table('info Spells Can Know', ['Id', 'SubId'] + [str(i) for i in range(10)] + ['LevelNeedingBonus'],
                     'Spells known by class and class level, for casters that know a fixed number.')
    usability = table('info Class Skill Usability', ['ClassId', 'SkillId', 'Usability'],
                      'Class skills (1); every other skill is cross-class (2) unless a row says otherwise.')
    barred = table('info Class Alignment Restrictions', ['ClassId', 'AlignmentId'],
                   'Alignments a member of the class may not have.')
    weapons = table('info Class Weapon Proficiency', ['WeaponId', 'ClassId', 'SizeId'],
                    'Weapons a class is proficient with beyond its simple and martial groups.')
    features = table('info Features', ['Guid', 'Id', 'Name', 'Group', 'Type'],
                     'Class features. Id repeats the feature so that FeatureId columns can join on it.\n'
                     'Group: features of one group replace each other as they improve (0: stands alone).\n'
                     'Group 1: what a barbarian loses on turning lawful. Type 14: AC bonus of Data.')
    class_features = table('info Class Features', ['ClassId', 'Level', 'FeatureId', 'Data', 'DataGuid'])
    skill_lower = {s.lower(): s for s in skill_names}
    feature_groups = {}
    feature_names = {}
    class_names = []
    for c in raw:
        name = c['name']
        kinds = [k.strip() for k in c['type'].split(',')]
        ctype = 4 if 'prestige' in kinds else 3 if 'npc' in kinds else 1
        # Levels above 20, or above 10 of a prestige class, are the epic rules, left out here.
        top_level = 10 if ctype == 4 else 20
        table_rows = sorted((r for r in by_class.get(name, []) if int(r['level']) <= top_level),
                            key=lambda r: int(r['level']))
        top = next((r for r in reversed(table_rows) if r['base_attack_bonus'].strip()), None)
        if top and int(top['level']) > 0:
            ratio = num(top['base_attack_bonus']) / int(top['level'])
            attack = min((0.5, 0.75, 1.0), key=lambda r: abs(r - ratio))
        else:
            attack = 0.5
        first = table_rows[0] if table_rows else {}
        good = [int(num(first.get(k, '')) >= 2) for k in ('fort_save', 'ref_save', 'will_save')]
        spell_type = c['spell_type'].split(',')[0].strip().lower()
        cast = {'arcane': 1, 'divine': 2, 'psionic': 3}.get(spell_type, 0)
        has_slots = any(slot(r.get(f'slots_{i}')) >= 0 for r in table_rows for i in range(10))
        if not has_slots:
            cast = 0  # psionic powers are not spells to these rules
        first_caster = next((int(r['level']) for r in table_rows
                             if any(slot(r.get(f'slots_{i}')) >= 0 for i in range(10))), 0)
        multiplier = 0.5 if name in ('Paladin', 'Ranger') else (1.0 if has_slots else 0)
        gold = BASE_GOLD.get(name, (0, 4, 0))
        prof = PROFICIENCY.get(name, (0, 0, 0, 0, 0, 0))
        bonus_fp, levels_fp = {'Fighter': (1, 2), 'Wizard': (0, 5)}.get(name, (0, 0))
        class_skill_picks = 10 if name == 'Expert' else 0
        animal = {'Druid': (1, 3), 'Ranger': (4, 3), 'Paladin': (5, 1), 'Sorcerer': (1, 0),
                  'Wizard': (1, 0), 'Blackguard': (5, 2)}.get(name, (0, -1))
        rows.append([int(c['id']), FIXED_CLASSES.get(name, ''), name, SHORT_NAMES.get(name, ''), ctype, num(c['hit_die'], 4),
                     AGE_CATEGORY.get(name, 0), *good, attack, num(c['skill_points']),
                     bonus_fp, levels_fp, class_skill_picks, gold[0], gold[1], gold[2], cast,
                     first_caster, multiplier, animal[0], animal[1], *prof,
                     ABILITIES.get(c['spell_stat'].lower(), -1), int(name in PREPARES),
                     int(name in KNOWS), 0, 0, -1, 0, 0, 0, 0, 0, 0])
        class_names.append(name)
        if has_slots:
            for r in table_rows:
                counts = [slot(r.get(f'slots_{i}')) for i in range(10)]
                zero = [i for i, v in enumerate(counts) if v == 0 and i > 0]
                per_day.append([name, int(r['level'])] + counts + [zero[-1] if zero else -1])
                known = [slot(r.get(f'spells_known_{i}')) for i in range(10)]
                if any(k >= 0 for k in known):
                    can_know.append([name, int(r['level'])] + known + [-1])
        listed = set()
        for part in re.split(r',\s*(?![^()]*\))', c['class_skills']):
            part = part.strip().rstrip('.')
            base = re.sub(r'\s*\(.*\)$', '', part).strip().lower()
            if base in skill_lower and skill_lower[base] not in listed:
                listed.add(skill_lower[base])
                usability.append([name, skill_lower[base], 1])
        if name == 'Barbarian':
            usability.append([name, 'Literacy', 2])
        allowed = c['alignment'].strip().lower()
        if allowed and allowed != 'any':
            ok = {ALIGNMENTS[a.strip()] for a in allowed.split(',') if a.strip() in ALIGNMENTS}
            for a in sorted(set(ALIGNMENTS.values()) - ok):
                barred.append([name, a])
        for w in CLASS_WEAPONS.get(name, '').split(';'):
            if w.strip():
                weapons.append([w.strip(), name, 8])
        for r in table_rows:
            for feat in re.split(r',\s*(?![^()]*\))', r['special'] or ''):
                feat = feat.strip().rstrip('.')
                if not feat or feat in ('—', '-'):
                    continue
                label = feat[:1].upper() + feat[1:]
                key = re.sub(r'[+\-]?\d+(?:d\d+)?(?:/day|st|nd|rd|th|/week| ft\.)?', '#', label.lower())
                group_key = (name, key)
                if group_key not in feature_groups:
                    feature_groups[group_key] = []
                feature_groups[group_key].append(label)
                full = f'{label} ({name})'
                if full not in feature_names:
                    feature_names[full] = (name, key)
                class_features.append([name, int(r['level']), full, -1, ''])
    # Numbers 13, 14, 15, 24 and 25 mean picked or open groups to the rules; skip them.
    free_groups = (g for g in range(2, 1000) if g not in (13, 14, 15, 24, 25))
    group_of = {}
    for (cname, key), labels in feature_groups.items():
        if len(set(labels)) > 1:
            group_of[(cname, key)] = next(free_groups)
    feat_lower = {f.lower(): f for f in feat_names}
    for full, (cname, key) in feature_names.items():
        group = group_of.get((cname, key), 0)
        if cname == 'Barbarian' and re.match(r'rage #', key):
            group = 1  # lost when a barbarian turns lawful
        label = full[:full.rindex(' (')]
        ftype, data_guid = 0, ''
        # A few class features share a name with an epic feat without being that feat.
        if label.lower() in feat_lower and label.lower() not in ('mighty rage', 'mobile defense'):
            ftype, data_guid = 1, '[info Feat]:' + feat_lower[label.lower()]
        elif cname == 'Monk' and label == 'Bonus feat':
            ftype = 2
        elif label in ('Divine grace', 'Dark blessing'):
            ftype = 7
        data = 1 if label.startswith('Natural armor increase') else -1
        if data == 1:
            ftype = 14  # each step adds one more point
        features.append(['', full, full, group, ftype])
        if data != -1:
            for row in class_features:
                if row[2] == full:
                    row[3] = data
        if data_guid:
            for row in class_features:
                if row[2] == full:
                    row[4] = data_guid
    features.append(['', 'Druidic (Druid)', 'Druidic (Druid)', 0, 16])
    class_features.append(['Druid', 1, 'Druidic (Druid)', -1, '[info Language]:Druidic'])
    for name, ftype in (('Crippling strike', 0), ('Defensive roll', 0), ('Improved evasion', 0),
                        ('Opportunist', 0), ('Skill mastery', 3), ('Slippery mind', 0),
                        ('Feat', 2)):
        features.append(['', f'{name} (Rogue special ability)', f'{name} (Rogue special ability)', 13, ftype])
    secrets = table('info Loremaster Secrets', ['Level', 'Data', 'FeatureId'],
                    'Level: the loremaster level plus Intelligence modifier needed for the secret.')
    for level, name, ftype, data in LOREMASTER_SECRETS:
        full = f'{name} (Loremaster secret)'
        features.append(['', full, full, 24, ftype])
        secrets.append([level, data, full])
    enemies = table('info Ranger Favored Enemy', ['Id', 'Name'])
    for i, name in enumerate(favored_enemies(), 1):
        enemies.append([i, name])
    for name, die, attack, saves, points in CREATURE_TYPES:
        for guid, cname, ctype in ((FIXED_CLASSES.get(name, ''), name, 2),) + (
                ((HUMANOID_PLAIN_PRICE, 'Humanoid (player race)', 5),) if name == 'Humanoid' else ()):
            rows.append([1000 + len(rows), guid, cname, '', ctype, die, 0, *saves, attack, points, 0, 0, 0,
                         0, 4, 0, 0, 0, 0, 0, -1, 0, 0, 0, 0, 0, 0, -1, 0, 0,
                         points, 1, 3, 2, 1, 0, 2, 1, 3])
    return class_names


RACE_FAMILIES = {'elf': 3, 'half-elf': 5, 'dwarf': 2, 'human': 1, 'gnome': 4, 'half-orc': 6, 'halfling': 7}


def requirements(skill_names, feat_names):
    rows = table('info Class Requirements', ['Id', 'RequireType', 'RaceId', 'Data', 'FeatId', 'SkillId', 'AlignmentId'],
                 'Entry requirements of prestige classes: RequireType 0 race family, 1 base attack, 2 feat,\n'
                 '3 skill ranks, 4 alignment (race rows and alignment rows are alternatives). Spell and\n'
                 'other requirements told only in words are not listed.')
    skill_lower = {x.lower(): x for x in skill_names}
    feat_lower = {x.lower(): x for x in feat_names}
    for c in read(os.path.join(RAW, 'class.csv')):
        if 'prestige' not in c['type']:
            continue
        name = c['name']
        for race in re.split(r',| or ', c['req_race'].lower()):
            if race.strip() in RACE_FAMILIES:
                rows.append([name, 0, RACE_FAMILIES[race.strip()], 0, '', '', -1])
        if c['req_base_attack_bonus'].strip():
            rows.append([name, 1, -1, num(c['req_base_attack_bonus']), '', '', -1])
        for part in re.split(r',\s*(?![^()]*\))', c['req_skill']):
            m = re.match(r'\s*(.+?)\s*(?:\(.*\))?\s+(\d+) ranks', part)
            if m and m.group(1).lower() in skill_lower:
                rows.append([name, 3, -1, int(m.group(2)), '', skill_lower[m.group(1).lower()], -1])
        for part in re.split(r',\s*(?![^()]*\))', c['req_feat']):
            base = re.sub(r'\s*(\(.*|in .*)$', '', part.strip()).lower()
            if base in feat_lower:
                rows.append([name, 2, -1, 0, feat_lower[base], '', -1])
        allowed = c['alignment'].strip().lower()
        if allowed and allowed != 'any':
            for a in allowed.split(','):
                if a.strip() in ALIGNMENTS:
                    rows.append([name, 4, -1, 0, '', '', ALIGNMENTS[a.strip()]])


# ---------------------------------------------------------------- spells and domains

SCHOOLS = ['Universal', 'Abjuration', 'Conjuration', 'Divination', 'Enchantment', 'Evocation',
           'Illusion', 'Necromancy', 'Transmutation']
SPELL_CLASSES = {'sorcerer/wizard': 'Sorcerer', 'wizard': 'Sorcerer', 'sorcerer': 'Sorcerer',
                 'bard': 'Bard', 'cleric': 'Cleric', 'druid': 'Druid', 'paladin': 'Paladin',
                 'ranger': 'Ranger', 'adept': 'Adept', 'assassin': 'Assassin',
                 'blackguard': 'Blackguard', 'brd': 'Bard', 'clr': 'Cleric', 'drd': 'Druid',
                 'pal': 'Paladin', 'rgr': 'Ranger', 'sor/wiz': 'Sorcerer'}
DESCRIPTORS = ['acid', 'air', 'chaotic', 'cold', 'darkness', 'death', 'earth', 'electricity',
               'evil', 'fear', 'fire', 'force', 'good', 'language-dependent', 'lawful', 'light',
               'mind-affecting', 'sonic', 'water']
COMPONENTS = {'V': 1, 'S': 2, 'M': 4, 'F': 8, 'DF': 16, 'XP': 32}


def spell_time(text):
    t = text.lower()
    m = re.match(r'(\d+|one) (standard action|action|full round|round|minute|hour|day|free action|swift action|immediate action)', t)
    if not m:
        return 1, 9
    count = 1 if m.group(1) == 'one' else int(m.group(1))
    unit = {'standard action': 1, 'action': 1, 'full round': 2, 'round': 3, 'minute': 4, 'hour': 5,
            'day': 6, 'free action': 0, 'swift action': 7, 'immediate action': 8}[m.group(2)]
    return count, unit


def spell_range(text):
    t = text.lower()
    for word, value in (('personal', 1), ('touch', 2), ('close', 3), ('medium', 4), ('long', 5),
                        ('unlimited', 6)):
        if t.startswith(word):
            return value
    return 7 if re.match(r'\d', t) else 0


def spell_duration(text):
    t = text.lower()
    for word, value in (('instantaneous', 1), ('permanent', 6), ('concentration', 7)):
        if t.startswith(word):
            return value
    for word, value in (('round', 2), ('minute', 3), ('hour', 4), ('day', 5)):
        if re.match(r'^[\d ]*\w*\s*' + word, t) or re.match(r'^\d+ ' + word, t):
            return value
    return 0


def spell_save(text):
    t = text.lower()
    for word, value in (('fortitude', 1), ('reflex', 2), ('will', 3)):
        if t.startswith(word):
            return value
    return 0 if t.startswith('none') or not t else 4


def spells(class_names):
    schools = table('info Spell Schools', ['Id', 'Name', 'Category'],
                    'Category 1: one of the eight schools a specialist can choose or prohibit.')
    for i, s in enumerate(SCHOOLS):
        schools.append([i, s, int(i > 0)])
    raw = [s for s in read(os.path.join(RAW, 'spell.csv')) if 'Epic' not in s['reference']]
    rows = table('info Spell', ['Id', 'Guid', 'Name', 'SchoolId', 'CastTime', 'TimeType', 'Range',
                                'Duration', 'Save', 'Components', 'Spell Resistance', 'Descriptors'],
                 'Range, Duration, Save, TimeType: rows of the [types ...] tables; Components and\n'
                 'Descriptors: bit sets of [types Spell Component Flags] and [types Spell Descriptors].')
    levels = table('info Spell Level', ['Id', 'ClassId', 'DomainId', 'Level'],
                   'A spell on a class list (ClassId) or a domain list (DomainId). The wizard uses the\n'
                   'sorcerer\'s list.')
    names = {}
    domain_rows = read(os.path.join(RAW, 'domain.csv'))
    domain_names = {d['name'].lower(): d['name'] for d in domain_rows}
    seen = set()
    domain_placed = set()
    for s in raw:
        name = s['name'].strip()
        if name.lower() in seen:
            continue
        seen.add(name.lower())
        school = s['school'].split()[0].strip() if s['school'] else 'Universal'
        school_id = SCHOOLS.index(school) if school in SCHOOLS else 0
        count, unit = spell_time(s['casting_time'])
        comps = sum(v for k, v in COMPONENTS.items()
                    if k in [c.strip().split('/')[0] for c in s['components'].replace('/', ',').split(',')])
        sr = s['spell_resistance'].lower()
        desc = sum(1 << i for i, d in enumerate(DESCRIPTORS) if d in s['descriptor'].lower())
        rows.append([len(rows) + 1, '', name, school_id, count, unit, spell_range(s['range']),
                     spell_duration(s['duration']), spell_save(s['saving_throw']), comps,
                     1 if sr.startswith('yes') else 0 if sr.startswith('no') or not sr else 2, desc])
        names[name.lower()] = name
        placed = set()
        for part in s['level'].split(','):
            m = re.match(r'\s*(.+?)\s+(\d)\s*$', part)
            if not m:
                continue
            who, level = m.group(1).strip().lower(), int(m.group(2))
            if who in SPELL_CLASSES and SPELL_CLASSES[who] in class_names:
                key = ('c', SPELL_CLASSES[who])
                if key not in placed:
                    placed.add(key)
                    levels.append([name, SPELL_CLASSES[who], '', level])
            elif who in domain_names:
                if (name, domain_names[who]) not in domain_placed:
                    domain_placed.add((name, domain_names[who]))
                    levels.append([name, '', domain_names[who], level])
    domains = table('info Domain', ['Guid', 'Name', 'RequiredAlignmentFlag', 'OpposingDomain'],
                    'RequiredAlignmentFlag: the alignment bit a cleric must have to choose the domain.')
    required = {'Good': 8, 'Evil': 32, 'Law': 1, 'Chaos': 4}
    opposing = {'Good': 'Evil', 'Evil': 'Good', 'Law': 'Chaos', 'Chaos': 'Law'}
    have = {d['name'] for d in domain_rows}
    for d in domain_rows:
        domains.append(['', d['name'], required.get(d['name'], 0),
                        opposing.get(d['name'], '') if opposing.get(d['name']) in have else ''])
        for i in range(1, 10):
            spell = d[f'spell_{i}'].strip().lower()
            spell = re.sub(r'\*$', '', spell)
            if spell in names and (names[spell], d['name']) not in domain_placed:
                domain_placed.add((names[spell], d['name']))
                levels.append([names[spell], '', d['name'], i])
    skills = table('info Domain Skill', ['DomainId', 'SkillId', 'ClassId', 'Usability'],
                   'Skills a domain makes class skills of the cleric.')
    for dom, skill in (('Animal', 'Knowledge'), ('Plant', 'Knowledge'), ('Knowledge', 'Knowledge'),
                       ('Travel', 'Survival'), ('Trickery', 'Bluff'), ('Trickery', 'Disguise'),
                       ('Trickery', 'Hide')):
        if dom in have:
            skills.append([dom, skill, 'Cleric', 1])
    return [d['name'] for d in domain_rows]


# ---------------------------------------------------------------- equipment

def cost(text):
    m = re.match(r'\s*([\d,]+)\s*(cp|sp|gp|pp)', text or '')
    if not m:
        return 0, 2
    return int(m.group(1).replace(',', '')), {'cp': 0, 'sp': 1, 'gp': 2, 'pp': 3}[m.group(2)]


def weight(text):
    m = re.match(r'\s*([\d.,/]+)\s*lb', text or '')
    if not m:
        return 0
    value = m.group(1).replace(',', '')
    if '/' in value:
        a, b = value.split('/')
        return round(float(a) / float(b), 3)
    return float(value)


def dice(text):
    m = re.match(r'\s*(\d+)d(\d+)', text or '')
    if not m:
        return (1, 1) if (text or '').strip() == '1' else (0, 4)
    return int(m.group(1)), int(m.group(2))


THROWN = {'Dart', 'Javelin', 'Shuriken (5)', 'Bolas', 'Net'}
NOT_ARMOR = {'Armor spikes', 'Gauntlet, locked', 'Shield spikes'}


def strength_bonus(name, use):
    """Row of [types Strength Bonus]: 0 full (two-handed and off-hand grips scale it), 2 a
    penalty only, 3 none."""
    if 'crossbow' in name.lower() or use == 5:
        return 3  # ammunition counts through its launcher
    if name.endswith('bow') or name.endswith('bow, composite'):
        return 2  # a composite bow without a rating takes a penalty but no bonus
    return 0


WEAPON_FAMILY = [('bow', 1), ('crossbow', 2), ('dagger', 3), ('sword, short', 3), ('rapier', 3),
                 ('kukri', 3), ('sickle', 3), ('scimitar', 4), ('sword', 4), ('falchion', 4),
                 ('axe', 5), ('hammer', 6), ('mace', 6), ('club', 6), ('morningstar', 6),
                 ('flail', 7), ('nunchaku', 7), ('glaive', 8), ('guisarme', 8), ('halberd', 8),
                 ('lance', 8), ('ranseur', 8), ('spear', 8), ('trident', 8), ('gauntlet', 9),
                 ('unarmed', 9), ('javelin', 10), ('dart', 10), ('shuriken', 10), ('bolas', 10),
                 ('arrows', 11), ('bolts', 11), ('bullets', 11)]


def equipment():
    raw = read(os.path.join(RAW, 'equipment.csv'))
    weapons = table('info Weapons', ['Guid', 'Name', 'CoinCount', 'CoinType', 'Weight', 'Masterwork',
                                     'RangeId', 'SkillId', 'SizeId', 'DmgDieCount1', 'DmgDieId1',
                                     'DmgDieCount2', 'DmgDieId2', 'CriticalMin', 'CriticalX',
                                     'CriticalX2', 'RangeInc', 'DamageType', 'WeaponUse', 'StrBonus',
                                     'FamilyId', 'SubdualDamage', 'MonkUnarmedWeapon', 'Count',
                                     '2HandedMultiplier'],
                    'Medium weapons. SizeId: Small for light, Medium for one-handed, Large for two-handed\n'
                    'and ranged weapons. DamageType bits: 1 bludgeoning, 2 piercing, 4 slashing.')
    armor = table('info Armor', ['Guid', 'Name', 'CoinCount', 'CoinType', 'Weight', 'Masterwork',
                                 'ArmorBonus', 'MaxDex', 'CheckPenalty', 'SpellFailure', 'WeightType',
                                 'Speed30', 'Speed20'])
    shields = table('info Shield', ['Guid', 'Name', 'CoinCount', 'CoinType', 'Weight', 'Masterwork',
                                    'ArmorBonus', 'MaxDex', 'CheckPenalty', 'SpellFailure', 'CanBash',
                                    'CanHaveSpikes'])
    goods = table('info Goods', ['Guid', 'Name', 'CoinCount', 'CoinType', 'Weight', 'Masterwork',
                                 'GoodsType'],
                  'GoodsType: row of [types Goods].')
    goods_types = {}
    for e in raw:
        name = e['name'].strip()
        c, ct = cost(e['cost'])
        if e['family'] == 'Weapons':
            sub = e['subcategory'].lower()
            thrown = name in THROWN
            ranged = ('ranged' in sub or 'ammunition' in sub) and not thrown
            use = 0 if 'light' in sub else 2 if 'two-handed' in sub else 1
            if 'unarmed' in sub:
                use = 6
            if 'ammunition' in sub and not thrown:
                use = 5
            elif ranged or thrown:
                use = 4
            prof = {'simple weapons': 0, 'martial weapons': 1, 'exotic weapons': 2}.get(e['category'].lower(), 0)
            size = {0: 3, 6: 3, 1: 4, 2: 5, 3: 5, 4: 5, 5: 4}[use]
            d1 = dice(e['dmg_m'])
            d2 = (0, 4)
            if '/' in (e['dmg_m'] or ''):
                parts = e['dmg_m'].split('/')
                d1, d2 = dice(parts[0]), dice(parts[1])
                use = 3
            crit = e['critical'] or 'x2'
            m = re.match(r'(\d+)-20', crit)
            cmin = int(m.group(1)) if m else 20
            mults = [int(x) for x in re.findall(r'x(\d)', crit)] or [2]
            dtype = 0
            t = (e['type'] or '').lower()
            for word, bit in (('bludgeoning', 1), ('piercing', 2), ('slashing', 4)):
                if word in t:
                    dtype |= bit
            family = next((f for k, f in WEAPON_FAMILY if k in name.lower()), 0)
            count = re.search(r'\((\d+)\)', name)
            weapons.append([FIXED_WEAPONS.get(name, ''), name, c, ct, weight(e['weight']),
                            0 if name == 'Unarmed strike' else 4 if use == 5 else 1,
                            2 if thrown else 1 if ranged else 0, prof, size, d1[0], d1[1], d2[0], d2[1], cmin,
                            mults[0], mults[1] if len(mults) > 1 else 0, num(e['range_increment']) if 'ft' in e['range_increment'] else 0,
                            dtype, use, strength_bonus(name, use), family,
                            1 if name in ('Unarmed strike', 'Sap', 'Whip') else 0,
                            1 if name in ('Unarmed strike', 'Kama', 'Nunchaku', 'Sai', 'Siangham',
                                          'Shuriken (5)', 'Quarterstaff') else 0,
                            int(count.group(1)) if count else 1, int(use == 2)])
        elif e['family'] == 'Armor and Shields' and name not in NOT_ARMOR:
            sub = e['subcategory'].lower()
            bonus = num(e['armor_shield_bonus'])
            maxdex = num(e['maximum_dex_bonus'], 100) if e['maximum_dex_bonus'].strip() not in ('', '—', '-') else 100
            acp = num(e['armor_check_penalty'])
            asf = num(e['arcane_spell_failure_chance'])
            if 'shield' in name.lower() or 'shield' in sub:
                shields.append(['', name, c, ct, weight(e['weight']), 2, bonus, maxdex, acp, asf,
                                int('tower' not in name.lower() and 'buckler' not in name.lower()), int('tower' not in name.lower() and 'buckler' not in name.lower())])
            else:
                wt = 0 if 'light' in sub else 1 if 'medium' in sub else 2
                armor.append(['', name, c, ct, weight(e['weight']), 2, bonus, maxdex, acp, asf, wt,
                              num(e['speed_30'], 30), num(e['speed_20'], 20)])
        elif e['category'] == 'Item' or name in NOT_ARMOR:
            group = 'Armor and shield extras' if name in NOT_ARMOR else e['subcategory'] or e['family']
            if group not in goods_types:
                goods_types[group] = len(goods_types)
            goods.append(['', name, c, ct, weight(e['weight']), 0, goods_types[group]])
    types = table('types Goods', ['Id', 'Name'])
    for name, i in goods_types.items():
        types.append([i, name])
    strength = table('types Strength Bonus', ['Id', 'Name'],
                     'How Strength counts on damage. 0: in full (half in the off hand, one and a half\n'
                     'two-handed), at most MaxStrBonus when that is 1 or more (mighty bows).')
    strength += [[0, 'Full'], [2, 'Penalty only'], [3, 'None']]
    mighty_bows(weapons)
    masterwork = table('info Masterwork Costs', ['Id', 'Name', 'CoinCount', 'CoinType', 'Override'],
                       'Added to an item\'s price for its masterwork form; 0: none.')
    masterwork += [[0, 'None', 0, 2, 0], [1, 'Masterwork weapon', 300, 2, 0],
                   [2, 'Masterwork armor or shield', 150, 2, 0], [3, 'Masterwork tool', 50, 2, 0],
                   [4, 'Masterwork ammunition (each)', 6, 2, 0]]


# Composite bows made for a Strength bonus; the price grows by the plain bow's price for each
# point, as the common ranged weapons table shows.
MIGHTY_BOWS = {'Shortbow, composite': 2, 'Longbow, composite': 4}


def mighty_name(bow, rating):
    return f'{bow} (+{rating} Str bonus)'


def mighty_bows(weapons):
    """Adds one weapon row per rating; each acts as its plain bow for feats and proficiency."""
    header = ROWS['info Weapons']['header']
    header += ['MaxStrBonus', 'ActsAs']
    for row in weapons:
        row += [0, '']
    strength = header.index('StrBonus')
    for bow, top in MIGHTY_BOWS.items():
        base = next(r for r in weapons if r[1] == bow)
        for rating in range(1, top + 1):
            row = list(base)
            row[0], row[1], row[2] = '', mighty_name(bow, rating), base[2] * (rating + 1)
            row[strength], row[-2], row[-1] = 0, rating, bow
            weapons.append(row)


# ---------------------------------------------------------------- smaller tables

def loads():
    rows = table('info Load Capacity', ['Strength', 'LightLoad', 'MediumLoad', 'HeavyLoad'],
                 'Heaviest load of each kind in pounds; above 29, each 10 points of Strength multiply by 4.')
    for r in read_rows(os.path.join(TABLES, 'basic-rules-and-legal__carrying-movement-and-exploration__01_carrying_capacity.csv'))[1:]:
        if r[0].isdigit():
            hi = lambda t: int(re.findall(r'[\d,]+', t)[-1].replace(',', ''))
            rows.append([int(r[0]), hi(r[1]), hi(r[2]), hi(r[3])])


def monk():
    damage = table('info Monk Unarmed Damage', ['SizeId', 'Level', 'DieCount', 'DieId'],
                   'Level: the highest monk level of the row.')
    medium = [(3, 1, 6), (7, 1, 8), (11, 1, 10), (15, 2, 6), (19, 2, 8), (20, 2, 10)]
    small = [(3, 1, 4), (7, 1, 6), (11, 1, 8), (15, 1, 10), (19, 2, 6), (20, 2, 8)]
    large = [(3, 1, 8), (7, 2, 6), (11, 2, 8), (15, 3, 6), (19, 3, 8), (20, 4, 8)]
    for size, steps in (('Small', small), ('Medium', medium), ('Large', large)):
        for level, count, die in steps:
            damage.append([size, level, count, die])
    speed = table('info Monk Unarmored Speed', ['Level', 'BaseSpeed', 'Speed'],
                  'Level: the highest monk level of the row; BaseSpeed the speed without the bonus.')
    for base in range(5, 65, 5):
        for level, bonus in ((2, 0), (5, 10), (8, 20), (11, 30), (14, 40), (17, 50), (20, 60)):
            speed.append([level, base, base + bonus])


def companion_features(kind, source, features):
    """Features a companion has from a master level on, from the Special column of its table."""
    rows = table(f'info {kind} Features', ['Level', 'FeatureId'],
                 'Level: the lowest master level at which the companion has the feature.')
    label = {'Familiar': 'familiar', 'Mount': 'special mount', 'Fiendish': 'fiendish servant'}[kind]
    for r in read_rows(os.path.join(TABLES, source))[1:]:
        if not re.match(r'\d', r[0]):
            continue
        level = 1 if 'or lower' in r[0] else num(r[0])
        for special in r[-1].split(','):
            special = special.strip()
            if not special or special in ('—', '-'):
                continue
            full = f'{special[:1].upper() + special[1:]} ({label})'
            if not any(f[1] == full for f in features):
                features.append(['', full, full, 0, 0])
            rows.append([level, full])


def companions():
    fam = table('info Familiar', ['MasterLevelMin', 'MasterLevelMax', 'BonusHD', 'NaturalArmor', 'StrAdj', 'Int'])
    for i in range(10):
        fam.append([2 * i + 1, 2 * i + 2, 0, i + 1, 0, 6 + i])
    mount = table('info Mount', ['MasterLevelMin', 'MasterLevelMax', 'BonusHD', 'NaturalArmor', 'StrAdj', 'Int'])
    mount += [[5, 7, 2, 4, 1, 6], [8, 10, 4, 6, 2, 7], [11, 14, 6, 8, 3, 8], [15, 20, 8, 10, 4, 9]]
    fiend = table('info Fiendish', ['MasterLevelMin', 'MasterLevelMax', 'BonusHD', 'NaturalArmor', 'StrAdj', 'Int'],
                  'By character level.')
    fiend += [[1, 12, 2, 1, 1, 6], [13, 15, 4, 3, 2, 7], [16, 18, 6, 5, 3, 8], [19, 20, 8, 7, 4, 9]]


COIN_TYPES = {'cp': 0, 'sp': 1, 'gp': 2, 'pp': 3}
ITEM_CLASSES = {'mundane': 5, 'minor': 6, 'medium': 7, 'major': 8}


def dice_times(text):
    """'2d8 x 10 gp' -> (2, 8, 10, 2); '1 gem' -> (1, 1, 1, None)."""
    m = re.match(r'\s*(\d+)(?:d(\d+))?\s*(?:x\s*([\d,]+))?\s*(cp|sp|gp|pp)?', text)
    count, die = int(m.group(1)), int(m.group(2) or 1)
    times = int((m.group(3) or '1').replace(',', ''))
    return count, die, times, COIN_TYPES.get(m.group(4))


def treasure():
    coins = table('Table 7-4 Treasure Coins', ['Level', 'Min', 'Max', 'DieCount', 'DieType', 'CoinCount', 'CoinType'],
                  'Coins by encounter level: DieCount dice of DieType sides, times CoinCount (0: no coins).')
    goods = table('Table 7-4 Treasure Goods', ['Level', 'Min', 'Max', 'DieCount', 'DieType', 'TreasureType'],
                  'TreasureType 3 gems, 4 art objects; DieCount 0: none.')
    items = table('Table 7-4 Treasure Items', ['Level', 'Min', 'Max', 'DieCount', 'DieType', 'TreasureType'],
                  'TreasureType 5 mundane, 6 minor, 7 medium, 8 major; DieCount 0: none.')
    for r in read(os.path.join(SRD, 'derived', 'treasure_by_encounter_level.csv')):
        key = [int(r['level']), int(r['d100_low']), int(r['d100_high'])]
        result = r['result'].strip()
        if r['category'] == 'coins':
            coins.append(key + (list(dice_times(result)) if result else [0, 4, 0, 2]))
        else:
            kind = 0
            if result:
                word = result.split()[-1]
                kind = 3 if word.startswith('gem') else 4 if word == 'art' else ITEM_CLASSES[word]
            count, die = dice_times(result)[:2] if result else (0, 4)
            (goods if r['category'] == 'goods' else items).append(key + [count, die, kind])
    for name, info, source in (('Table 7-5 Gems', 'info Gem', 'basic-rules-and-legal__treasure__05_gems.csv'),
                               ('Table 7-6 Art Objects', 'info Art Objects', 'basic-rules-and-legal__treasure__06_art_objects.csv')):
        values = table(name, ['Min', 'Max', 'DieCount', 'DieType', 'CoinCount', 'CoinType', 'Category'],
                       'Value: DieCount dice of DieType sides times CoinCount coins; Category picks the goods.')
        goods_rows = table(info, ['Name', 'Category', 'CoinCount', 'CoinType'],
                           'Goods by value category; CoinCount is the average value.')
        for category, r in enumerate(read_rows(os.path.join(TABLES, source))[1:], 1):
            low, _, high = r[0].partition('-')
            count, die, times, coin = dice_times(r[1])
            values.append([int(low), int(high or low), count, die, times, coin, category])
            for example in r[3].split(';'):
                example = example.strip()
                if example and not any(g[0].lower() == example.lower() for g in goods_rows):
                    goods_rows.append([example[:1].upper() + example[1:], category,
                                       int(r[2].split()[0].replace(',', '')), 2])


MAGIC = 'magic-items__magic-items-ii-armor-and-weapons__'


def bounds(text):
    """'01-04' -> (1, 4); '100' -> (100, 100); a dash -> (None, None)."""
    m = re.match(r'\s*(\d+)(?:-(\d+))?\s*$', text or '')
    if not m:
        return None, None
    return int(m.group(1)), int(m.group(2) or m.group(1))


def class_bounds(row):
    return [b for cell in row[:3] for b in bounds(cell)]


def plain(name):
    """A name reduced for matching: no footnote digits, counts, commas or case."""
    name = re.sub(r'(?<=[a-z])\d$', '', name.strip())
    name = re.sub(r'\s*\((?:\d+|[^)]*Str bonus)\)', '', name)
    return re.sub(r'[^a-z ]', '', name.lower()).replace('  ', ' ').strip()


# Names the magic item tables give differently from the equipment list.
ALIASES = {'flail light': 'Flail', 'crossbow repeating': 'Crossbow, repeating light'}


def matcher(table_name):
    rows = [r for r in ROWS[table_name]['rows'] if 'Str bonus)' not in r[1]]
    names = {plain(r[1]): r[1] for r in rows}
    names.update({k: v for k, v in ALIASES.items() if any(r[1] == v for r in rows)})
    names.update({plain(r[1]).replace(' ', ''): r[1] for r in rows})
    return lambda text: names.get(plain(text)) or names.get(plain(text).replace(' ', ''))


def price(text):
    m = re.search(r'([\d,]+) gp', text or '')
    return int(m.group(1).replace(',', '')) if m else 0


def plus(text):
    m = re.match(r'\s*\+(\d+)', text or '')
    if not m:
        return None
    value = int(m.group(1))
    return value // 10 if value > 10 else value  # a footnote digit follows the bonus


ARMOR_CATEGORIES = {'fortification': 1, 'slick': 2, 'shadow': 3, 'silent moves': 4,
                    'acid resistance': 5, 'cold resistance': 6, 'electricity resistance': 7,
                    'fire resistance': 8, 'sonic resistance': 9, 'spell resistance': 10,
                    'arrow deflection': 11, 'reflecting': 12}
WEAPON_CATEGORIES = {'flaming': 1, 'flaming burst': 1, 'frost': 2, 'icy burst': 2, 'shock': 3,
                     'shocking burst': 3, 'anarchic': 4, 'axiomatic': 5, 'holy': 6, 'unholy': 7}
OPPOSITE = {4: 5, 5: 4, 6: 7, 7: 6}


FOE_ALIGNMENTS = {'chaotic': 20, 'evil': 34, 'good': 10, 'lawful': 17}


def designated_foes():
    """Bane foes: the creature type's class row, narrowed for outsiders by an alignment."""
    rows = table('Table ZKB186 Designated Foe', ['Min', 'Max', 'Id', 'Name', 'AlignId'],
                 'Id: the creature type (its class row); AlignId narrows outsiders to an alignment\n'
                 '(the neutral one of that side). Humanoid and elemental subtypes keep only their name.')
    types = {t[0].lower(): t[0] for t in CREATURE_TYPES}
    for r in read_rows(os.path.join(TABLES, MAGIC + '16_magic_weapon_special_ability_descriptions.csv'))[1:]:
        low, high = bounds(r[0])
        if low is None:
            continue
        kind, _, sub = r[1].partition(',')
        kind = re.sub(r's$', '', kind.strip().lower())
        if kind in types:
            rows.append([low, high, '[info Class]:' + types[kind], r[1].strip(),
                         FOE_ALIGNMENTS.get(sub.strip().lower(), 0)])


# Specific magic armor, shields and weapons: the item they are made from and their enhancement
# bonus. Their rows copy the base item's numbers; special materials are not modelled.
SPECIFIC_ITEMS = {
    'Mithral shirt': ('Chain shirt', 0), 'Dragonhide plate': ('Full plate', 0),
    'Elven chain': ('Chainmail', 0), 'Rhino hide': ('Hide', 2),
    'Adamantine breastplate': ('Breastplate', 0), 'Dwarven plate': ('Full plate', 0),
    'Banded mail of luck': ('Banded mail', 3), 'Celestial armor': ('Chainmail', 3),
    'Plate armor of the deep': ('Full plate', 1), 'Breastplate of command': ('Breastplate', 2),
    'Mithral full plate of speed': ('Full plate', 1), 'Demon armor': ('Full plate', 4),
    'Darkwood buckler': ('Buckler', 0), 'Darkwood shield': ('Shield, heavy wooden', 0),
    'Mithral heavy shield': ('Shield, heavy steel', 0), "Caster's shield": ('Shield, light wooden', 1),
    'Spined shield': ('Shield, heavy steel', 1), "Lion's shield": ('Shield, heavy steel', 2),
    'Winged shield': ('Shield, heavy wooden', 3), 'Absorbing shield': ('Shield, heavy steel', 1),
    'Sleep arrow': ('Arrows (20)', 1), 'Screaming bolt': ('Bolts, crossbow (10)', 2),
    'Silver dagger, masterwork': ('Dagger', 0), 'Cold iron longsword, masterwork': ('Longsword', 0),
    'Javelin of lightning': ('Javelin', 0), 'Slaying arrow': ('Arrows (20)', 0),
    'Adamantine dagger': ('Dagger', 0), 'Adamantine battleaxe': ('Battleaxe', 0),
    'Slaying arrow (greater)': ('Arrows (20)', 0), 'Shatterspike': ('Longsword', 1),
    'Dagger of venom': ('Dagger', 1), 'Trident of warning': ('Trident', 2),
    "Assassin's dagger": ('Dagger', 2), "Shifter's sorrow": ('Sword, two-bladed', 1),
    'Trident of fish command': ('Trident', 1), 'Flame tongue': ('Longsword', 1),
    'Luck blade (0 wishes)': ('Sword, short', 2), 'Sword of subtlety': ('Sword, short', 1),
    'Sword of the planes': ('Longsword', 1), 'Nine lives stealer': ('Longsword', 2),
    'Sword of life stealing': ('Longsword', 2), 'Oathbow': ('Longbow, composite (+2 Str bonus)', 2),
    'Mace of terror': ('Mace, heavy', 2), 'Life-drinker': ('Greataxe', 1),
    'Sylvan scimitar': ('Scimitar', 3), 'Rapier of puncturing': ('Rapier', 2),
    'Sun blade': ('Sword, bastard', 2), 'Frost brand': ('Greatsword', 3),
    'Dwarven thrower': ('Warhammer', 2), 'Luck blade (1 wish)': ('Sword, short', 2),
    'Mace of smiting': ('Mace, heavy', 3), 'Luck blade (2 wishes)': ('Sword, short', 2),
    'Holy avenger': ('Longsword', 2), 'Luck blade (3 wishes)': ('Sword, short', 2),
}
# The slaying arrows are made against a foe chosen when the arrow is.
FOE_WEAPONS = {'Slaying arrow': '{CCE80EED-CB40-425D-B476-569ACEE161A8}',
               'Slaying arrow (greater)': '{CCF148B2-0866-48D5-ABE4-FC75D0B66AC6}'}


def specific_items():
    for info, roll, source in (('info Armor', 'Table 8-8 Specific Armors', '07_specific_armors.csv'),
                               ('info Shield', 'Table 8-9 Specific Shields', '08_specific_shields.csv'),
                               ('info Weapons', 'Table 8-17 Specific Weapons', '17_specific_weapons.csv')):
        target = ROWS[info]
        header = target['header']
        for column in ('IsMagic', 'MagicBonus', 'CanBeMagic'):
            if column not in header:
                header.append(column)
                for row in target['rows']:
                    row.append(0 if column != 'CanBeMagic' else 1)
        rolls = table(roll, ['MinorMin', 'MinorMax', 'MedMin', 'MedMax', 'MajorMin', 'MajorMax', 'ItemId'],
                      f'ItemId: a magic row of [{info}] priced in full.')
        for r in read_rows(os.path.join(TABLES, MAGIC + source))[1:]:
            name = r[3].strip() if len(r) > 4 else ''
            if name not in SPECIFIC_ITEMS or not any(bounds(c)[0] for c in r[:3]):
                continue
            base_name, bonus = SPECIFIC_ITEMS[name]
            base = next(row for row in target['rows'] if row[1] == base_name)
            row = list(base)
            row[0] = FOE_WEAPONS.get(name, '')
            row[1] = name
            row[2], row[3] = price(r[4]), 2
            row[header.index('IsMagic')] = 1
            row[header.index('MagicBonus')] = bonus
            row[header.index('CanBeMagic')] = 0
            if 'Count' in header:
                row[header.index('Count')] = 1  # a magic arrow or bolt is priced alone
            target['rows'].append(row)
            rolls.append(class_bounds(r) + [name])


def magic():
    gen = table('Table 8-2 Random Magic Items Generation',
                ['MinorMin', 'MinorMax', 'MedMin', 'MedMax', 'MajorMin', 'MajorMax', 'MagicItemType'])
    kinds = ['armor and shields', 'weapons', 'potions', 'rings', 'rods', 'scrolls', 'staffs', 'wands',
             'wondrous items']
    for r in read_rows(os.path.join(TABLES, 'magic-items__magic-items-i-basics-and-creation__02_random_magic_item_generation.csv'))[1:]:
        if r[3].strip().lower() in kinds:
            gen.append(class_bounds(r) + [kinds.index(r[3].strip().lower()) + 1])

    armor_table = table('Table 8-3 Armor and Shields',
                        ['MinorMin', 'MinorMax', 'MedMin', 'MedMax', 'MajorMin', 'MajorMax', 'ItemType', 'Bonus', 'CoinCount'],
                        'ItemType 1 armor, 2 shield, 3 specific armor, 4 specific shield, 5 special ability and\n'
                        'roll again. Rows without bounds only price an enhancement bonus.')
    for r in read_rows(os.path.join(TABLES, MAGIC + '01_armor_and_shields.csv'))[1:]:
        item = r[3].lower()
        bonus = plus(item)
        if bonus is not None:
            for kind, word in ((1, 'armor'), (2, 'shield')):
                if word in item:
                    armor_table.append(class_bounds(r) + [kind, bonus, price(r[4])])
        elif item.startswith('specific'):
            armor_table.append(class_bounds(r) + [3 if 'armor' in item else 4, 0, 0])
        elif item.startswith('special'):
            armor_table.append(class_bounds(r) + [5, 0, 0])

    weapon_table = table('Table 8-10 Weapons',
                         ['MinorMin', 'MinorMax', 'MedMin', 'MedMax', 'MajorMin', 'MajorMax', 'ItemType', 'Bonus', 'CoinCount'],
                         'ItemType 1 weapon, 2 specific weapon, 3 special ability and roll again. Rows without\n'
                         'bounds only price an enhancement bonus.')
    for r in read_rows(os.path.join(TABLES, MAGIC + '09_weapons.csv'))[1:]:
        item = r[3].lower()
        bonus = plus(item)
        if bonus is not None:
            weapon_table.append(class_bounds(r) + [1, bonus, price(r[4])])
        elif item.startswith('specific'):
            weapon_table.append(class_bounds(r) + [2, 0, 0])
        elif item.startswith('special'):
            weapon_table.append(class_bounds(r) + [3, 0, 0])

    find_armor, find_shield, find_weapon = matcher('info Armor'), matcher('info Shield'), matcher('info Weapons')
    for name, source, find in (('Table 8-4 Random Armor Type', '02_random_armor_type.csv', find_armor),
                               ('Table 8-5 Random Shield Type', '03_random_shield_type.csv', find_shield),
                               ('Table 8-12 Common Melee Weapons', '11_common_melee_weapons.csv', find_weapon),
                               ('Table 8-13 Uncommon Weapons', '12_uncommon_weapons.csv', find_weapon)):
        rows = table(name, ['Min', 'Max', 'ItemId', 'IsMasterwork'], 'Every magic item is masterwork.')
        for r in read_rows(os.path.join(TABLES, MAGIC + source))[1:]:
            low, high = bounds(r[0])
            if low is not None and find(r[1]):
                rows.append([low, high, find(r[1]), 1])
    kinds = table('Table 8-11 Weapon Type Determination', ['Min', 'Max', 'ItemType'],
                  'ItemType 7 common melee, 8 uncommon, 9 common ranged.')
    for r in read_rows(os.path.join(TABLES, MAGIC + '10_weapon_type_determination.csv'))[1:]:
        low, high = bounds(r[0])
        if low is not None:
            kinds.append([low, high, 7 if 'melee' in r[1].lower() else 9 if 'ranged' in r[1].lower() else 8])
    ranged = table('Table 8-14 Common Ranged Weapons', ['Min', 'Max', 'ItemId', 'IsMasterwork', 'PickAmmunition'])
    ammo = table('Table 8-14 Common Ranged Weapons Sub', ['Min', 'Max', 'ItemId', 'IsMasterwork'])
    for r in read_rows(os.path.join(TABLES, MAGIC + '13_common_ranged_weapons.csv'))[1:]:
        low, high = bounds(r[0])
        if low is not None and 'ammunition' in r[1].lower():
            ranged.append([low, high, '', 1, 1])
        elif low is not None and find_weapon(r[1]):
            rating = num(re.search(r'\(\+(\d) Str bonus\)', r[1]).group(1)) if 'Str bonus' in r[1] else 0
            bow = find_weapon(r[1])
            ranged.append([low, high, mighty_name(bow, rating) if rating else bow, 1, 0])
        elif low is None and bounds(r[1])[0] is not None and find_weapon(r[2]):
            ammo.append(list(bounds(r[1])) + [find_weapon(r[2]), 1])

    armor_abilities = table('Table 8-6 and 8-7 Special Abilities',
                            ['Id', 'Name', 'Bonus', 'CoinCount', 'Category', 'Rank', 'Flags'],
                            'Flags 1 armor, 2 shield, 3 both. Bonus: what the ability counts as for the price;\n'
                            'CoinCount: its price when it has one in coins instead. Abilities of one Category\n'
                            'replace each other by Rank.')
    by_name = {}
    for flag, name, source in ((1, 'Table 8-6 Armor Special Abilities', '04_armor_special_abilities.csv'),
                               (2, 'Table 8-7 Shield Special Abilities', '05_shield_special_abilities.csv')):
        rows = table(name, ['MinorMin', 'MinorMax', 'MedMin', 'MedMax', 'MajorMin', 'MajorMax', 'Type', 'Special'],
                     'Type: row of [Table 8-6 and 8-7 Special Abilities]; Special 2: roll twice more.')
        for r in read_rows(os.path.join(TABLES, MAGIC + source))[1:]:
            if not any(bounds(c)[0] for c in r[:3]):
                continue
            ability = re.sub(r'\d$', '', r[3].strip())
            if ability.lower().startswith('roll'):
                rows.append(class_bounds(r) + [0, 2])
                continue
            if ability not in by_name:
                base = ability.split(',')[0].split(' (')[0].lower()
                category = ARMOR_CATEGORIES.get(base, 0)
                rank = sum(1 for a in by_name if a.split(',')[0].split(' (')[0].lower() == base) + 1 if category else 0
                by_name[ability] = [len(by_name) + 1, ability, (plus(r[4]) or 0) if 'bonus' in r[4] else 0, price(r[4]) if 'gp' in r[4] else 0,
                                    category, rank, 0]
                armor_abilities.append(by_name[ability])
            by_name[ability][6] |= flag
            rows.append(class_bounds(r) + [by_name[ability][0], 0])

    weapon_abilities = table('Table 8-15 and 8-16 Special Abilities',
                             ['Id', 'Name', 'Bonus', 'CoinCount', 'Category', 'OppositeCategory', 'WeaponType', 'Flags'],
                             'Flags 1 melee, 2 ranged, 3 both. WeaponType: damage type bits the weapon must have\n'
                             '(0 any). An ability whose Category is another\'s OppositeCategory excludes it.')
    by_name = {}
    for flag, name, source in ((1, 'Table 8-15 Melee Weapon Special Abilities', '14_melee_weapon_special_abilities.csv'),
                               (2, 'Table 8-16 Ranged Weapon Special Abilities', '15_ranged_weapon_special_abilities.csv')):
        rows = table(name, ['MinorMin', 'MinorMax', 'MedMin', 'MedMax', 'MajorMin', 'MajorMax', 'Type', 'Special'],
                     'Type: row of [Table 8-15 and 8-16 Special Abilities]; Special 2: roll twice more.')
        for r in read_rows(os.path.join(TABLES, MAGIC + source))[1:]:
            if not any(bounds(c)[0] for c in r[:3]):
                continue
            ability = re.sub(r'\d$', '', r[3].strip())
            if ability.lower().startswith('roll'):
                rows.append(class_bounds(r) + [0, 2])
                continue
            if ability not in by_name:
                category = WEAPON_CATEGORIES.get(ability.lower(), 0)
                weapon_type = {'keen': 6, 'vorpal': 6, 'disruption': 1}.get(ability.lower(), 0)
                by_name[ability] = [len(by_name) + 1, ability, (plus(r[4]) or 0) if 'bonus' in r[4] else 0, price(r[4]) if 'gp' in r[4] else 0,
                                    category, OPPOSITE.get(category, 0), weapon_type, 0]
                weapon_abilities.append(by_name[ability])
            by_name[ability][7] |= flag
            rows.append(class_bounds(r) + [by_name[ability][0], 0])


MAGIC_III = 'magic-items__magic-items-iii-potions-rings-and-rods__'
MAGIC_IV = 'magic-items__magic-items-iv-scrolls-staffs-and-wands__'
MAGIC_V = 'magic-items__magic-items-v-wondrous-items__'
CASTER_PREFERENCE = ['Sorcerer', 'Cleric', 'Druid', 'Bard', 'Ranger', 'Paladin']


def spell_lists():
    """Spell name (lower case) to its lists, and to the class that casts it first in the preference order."""
    levels = {}
    for spell, cls, domain, level in ROWS['info Spell Level']['rows']:
        if cls:
            levels.setdefault(spell.lower(), {})[cls] = level
    names = {r[2].lower(): r[2] for r in ROWS['info Spell']['rows']}
    return names, levels


def find_spell(text, names):
    name = re.sub(r'\s*\((potion|oil)\)\s*$', '', text.strip(), flags=re.I)
    name = re.sub(r'\s*\d+$', '', name).lower()
    base = name.split(' (')[0]
    # "Greater invisibility" is listed as "Invisibility, Greater".
    inverted = re.sub(r'^(greater|lesser|mass) (.*)$', r'\2, \1', base)
    for candidate in (name, base, re.sub(r',.*$', '', name), inverted):
        if candidate in names:
            return names[candidate]
    return None


def priced_items(info, roll, source, columns, quality_column=False):
    """An item list and its roll table from a table of bounds per class, name and price."""
    items = table(info, ['Name', 'CoinCount'] + (['QualityType'] if quality_column else []))
    header = ['MinorMin', 'MinorMax', 'MedMin', 'MedMax', 'MajorMin', 'MajorMax']
    rolls = table(roll, header + [columns], f'{columns}: row of [{info}].')
    seen = {}
    rows = read_rows(os.path.join(TABLES, source))
    classes = [c.strip().lower() for c in rows[0][:-2]]
    for r in rows[1:]:
        if len(r) < len(classes) + 2 or not any(bounds(c)[0] for c in r[:len(classes)]):
            continue
        name = re.sub(r'(?<=[a-z])\d$', '', r[len(classes)].strip())
        if name.lower() not in seen:
            seen[name.lower()] = name
            items.append([name, price(r[len(classes) + 1])])
        by_class = {c: bounds(r[i]) for i, c in enumerate(classes)}
        cells = [b for c in ('minor', 'medium', 'major') for b in by_class.get(c, (None, None))]
        rolls.append(cells + [seen[name.lower()]])
    return items, rolls


def magic_items():
    names, levels = spell_lists()
    potions, potion_rolls = priced_items('info Potions', 'Table 8-18 Potions', MAGIC_III + '01_potions_and_oils.csv', 'SpecificId')
    for row in potion_rolls:
        row[6:6] = [2]
    ROWS['Table 8-18 Potions']['header'][6:6] = ['PotionType']
    ROWS['Table 8-18 Potions']['comment'] = ('PotionType 2: the item of [info Potions] in SpecificId, priced as the '
                                             'rules list it.')
    priced_items('info Rings', 'Table 8-19 Rings', MAGIC_III + '02_rings.csv', 'RingId')
    priced_items('info Rods', 'Table 8-20 Rods', MAGIC_III + '05_rods.csv', 'ItemId')
    priced_items('info Staffs', 'Table 8-26 Staffs', MAGIC_IV + '06_staffs.csv', 'ItemId')

    wands = table('Table 8-27 Wands', ['MinorMin', 'MinorMax', 'MedMin', 'MedMax', 'MajorMin', 'MajorMax',
                                      'SpellId', 'CasterClass', 'OvrCasterLevel', 'OvrLevel'],
                  'The caster class is the wizard for the sorcerer and wizard list (a wizard reaches each '
                  'spell level first, which sets the listed price), else the first list the spell stands '
                  'on; a domain spell is the cleric\'s. OvrCasterLevel: a caster level the wand names, '
                  '"(5th)"; OvrLevel: the level of a heightened spell, or of a domain spell.')
    for r in read_rows(os.path.join(TABLES, MAGIC_IV + '07_wands.csv'))[1:]:
        spell = find_spell(r[3], names) if len(r) > 4 else None
        if not spell or not any(bounds(c)[0] for c in r[:3]):
            continue
        lists = levels.get(spell.lower(), {})
        caster = next((c for c in CASTER_PREFERENCE if c in lists), None)
        caster_level = re.search(r'\((\d+)(?:st|nd|rd|th)\)', r[3])
        heightened = re.search(r'heightened \((\d+)(?:st|nd|rd|th)[- ]level', r[3])
        level = int(heightened.group(1)) if heightened else 0
        if not caster:
            # A domain spell only: its price names the level it is cast at as a 4th-level spell.
            caster, level = 'Cleric', round(price(r[4]) / 750 / int(caster_level.group(1))) if caster_level else 0
        if caster and (caster != 'Cleric' or level or lists):
            wands.append(class_bounds(r) + [spell, 'Wizard' if caster == 'Sorcerer' else caster,
                                            int(caster_level.group(1)) if caster_level else 0, level])

    wondrous = table('info Wondrous Items', ['Name', 'CoinCount', 'QualityType'],
                     'QualityType: 1 minor, 2 medium, 3 major.')
    seen = set()
    for quality, name, source in ((1, 'Table 8-28 Minor Wondrous Items', '01_minor_wondrous_items.csv'),
                                  (2, 'Table 8-29 Medium Wondrous Items', '02_medium_wondrous_items.csv'),
                                  (3, 'Table 8-30 Major Wondrous Items', '03_major_wondrous_items.csv')):
        rolls = table(name, ['Min', 'Max', 'Id'])
        for r in read_rows(os.path.join(TABLES, MAGIC_V + source))[1:]:
            low, high = bounds(r[0])
            if low is None or len(r) < 3:
                continue
            item = re.sub(r'(?<=[a-z])\d$', '', r[1].strip())
            if item.lower() not in seen:
                seen.add(item.lower())
                wondrous.append([item, price(r[2]), quality])
            rolls.append([low, high, next(w[0] for w in wondrous if w[0].lower() == item.lower())])

    scroll_types = table('Table 8-21 Scroll Types', ['Min', 'Max', 'CastType'], 'CastType 1 arcane, 2 divine.')
    for r in read_rows(os.path.join(TABLES, MAGIC_IV + '01_scroll_types.csv'))[1:]:
        low, high = bounds(r[0])
        if low is not None:
            scroll_types.append([low, high, 1 if 'arcane' in r[1].lower() else 2])
    counts = table('Table 8-22 Number of Spells on a Scroll', ['MagicType', 'DieCount', 'DieType'],
                   'MagicType: 1 minor, 2 medium, 3 major scroll.')
    for quality, r in enumerate(read_rows(os.path.join(TABLES, MAGIC_IV + '02_number_of_spells_on_a_scroll.csv'))[1:4], 1):
        count, die = dice_times(r[1])[:2]
        counts.append([quality, count, die])
    spell_level = table('Table 8-23 Scroll Spell Level', ['MinorMin', 'MinorMax', 'MedMin', 'MedMax', 'MajorMin', 'MajorMax', 'Level'])
    for r in read_rows(os.path.join(TABLES, MAGIC_IV + '03_scroll_spell_levels.csv'))[1:]:
        if any(bounds(c)[0] for c in r[:3]):
            spell_level.append(class_bounds(r) + [num(r[3])])
    for name, source, lists in (('Table 8-24 Arcane Spell Scrolls', '04_arcane_spell_scrolls.csv', ['Sorcerer', 'Bard']),
                                ('Table 8-25 Divine Spell Scrolls', '05_divine_spell_scrolls.csv',
                                 ['Cleric', 'Druid', 'Paladin', 'Ranger'])):
        rolls = table(name, ['Level', 'Min', 'Max', 'SpellId', 'CasterClass'])
        level = 0
        for r in read_rows(os.path.join(TABLES, MAGIC_IV + source)):
            if len(set(r)) == 1 and 'level' in r[0].lower():
                level = num(r[0])
                continue
            low, high = bounds(r[0])
            spell = find_spell(r[1], names) if low is not None else None
            if not spell:
                continue
            caster = next((c for c in lists if c in levels.get(spell.lower(), {})), None)
            if caster:
                # The wizard reaches each level of the shared list first; the listed prices assume it.
                rolls.append([level, low, high, spell, 'Wizard' if caster == 'Sorcerer' else caster])


MAGIC_VI = 'magic-items__magic-items-vi-intelligent-cursed-and-artifacts__'


def roll_list(types_name, roll_name, source, extra=None):
    """A code table of the results of a d% table, and the roll table naming them by id."""
    types = table(types_name, ['Id', 'Name'] + (list(extra[0]) if extra else []))
    rolls = table(roll_name, ['Min', 'Max', 'Id'])
    for r in read_rows(os.path.join(TABLES, MAGIC_VI + source)):
        low, high = bounds(r[0])
        if low is None or len(r) < 2:
            continue
        name = re.sub(r'\*$', '', r[1].strip())[:100]
        existing = next((t for t in types if t[1] == name), None)
        if not existing:
            existing = [len(types) + 1, name] + (list(extra[1](name)) if extra else [])
            types.append(existing)
        rolls.append([low, high, existing[0]])
    return types, rolls


def power_frequency(name):
    m = re.search(r'(\d+)/day', name)
    if m:
        return 1, int(m.group(1))
    if 'continual' in name or 'continuous' in name or name.startswith('Item has'):
        return 2, 0
    return 0, 0


def intelligent_and_cursed():
    alignment = table('Table 8-32 Item Alignment', ['Min', 'Max', 'AlignmentId'])
    for r in read_rows(os.path.join(TABLES, MAGIC_VI + '01_intelligent_item_alignment.csv')):
        low, high = bounds(r[0])
        if low is not None:
            alignment.append([low, high, ALIGNMENTS[r[1].strip().rstrip('*').lower()]])
    communication = table('types Intelligent Communication', ['Id', 'Name'])
    communication += [[1, 'Empathy'], [2, 'Speech'], [4, 'Telepathy']]
    items = table('Table 8-31 Item', ['Min', 'Max', 'FavoredDieCount', 'FavoredDieType', 'FavoredDieMod',
                                      'NormalDieCount', 'NormalDieType', 'Communication1', 'Communication2',
                                      'CanReadLanguages', 'CanReadMagic', 'PrimaryAbilities', 'Powers', 'CoinCount'],
                  'The scores are fixed: two favored ones (no dice plus FavoredDieMod) and one of 10 (ten d1).\n'
                  'PrimaryAbilities: lesser powers; Powers: greater powers. CoinCount: the price it adds.')
    words = {'one': 1, 'two': 2, 'three': 3, 'four': 4}
    for r in read_rows(os.path.join(TABLES, MAGIC_VI + '02_item_intelligence_wisdom_charisma_and_capabilities.csv'))[1:]:
        low, high = bounds(r[0])
        if low is None:
            continue
        favored = num(r[1])
        notes = set(re.findall(r'\d', r[2]))
        comm = [2 if 'speech' in r[2].lower() else 1, 4 if 'telepathy' in r[2].lower() else 0]
        lesser = re.search(r'(\w+) lesser', r[3].lower())
        greater = re.search(r'(\w+) greater', r[3].lower())
        items.append([low, high, 0, 1, favored, 10, 1, comm[0], comm[1], int('3' in notes or '5' in notes),
                      int('5' in notes), words.get(lesser.group(1), 0) if lesser else 0,
                      words.get(greater.group(1), 0) if greater else 0, price(r[5])])
    scores = table('Table ZKB228 Random Intelligent Scores', ['Id', 'High', 'Medium', 'Low'],
                   'Which mental ability gets which score (3 Int, 4 Wis, 5 Cha), by a d4.')
    scores += [[1, 3, 4, 5], [2, 4, 5, 3], [3, 5, 3, 4], [4, 3, 5, 4]]
    roll_list('types Intelligent Item Abilities', 'Table 8-33 Intelligent Item Primary Abilities',
              '03_intelligent_item_powers.csv')
    ROWS['Table 8-33 Intelligent Item Primary Abilities']['header'].append('Special')
    for row in ROWS['Table 8-33 Intelligent Item Primary Abilities']['rows']:
        row.append(0)
    roll_list('types Intelligent Item Extraordinary Powers', 'Table 8-34 Intelligent Item Extraordinary Powers',
              '04_intelligent_item_powers.csv', (('Frequency', 'Data'), power_frequency))
    ROWS['Table 8-34 Intelligent Item Extraordinary Powers']['header'].append('Special')
    for row in ROWS['Table 8-34 Intelligent Item Extraordinary Powers']['rows']:
        row.append(0)
    roll_list('types Intelligent Item Purposes', 'Table 8-35 Intelligent Item Purposes', '05_special_purpose_items.csv')
    roll_list('types Intelligent Item Special Purpose Powers', 'Table 8-36 Intelligent Item Special Purpose Powers',
              '06_dedicated_power.csv')
    chance = table('Text ZKB228 Item Randomly Intelligent', ['Id', 'SubId', 'Chance'],
                   'Percent chance that a magic item is intelligent, by item type (Id) and, for weapons, range\n'
                   '(SubId): melee weapons 15, ranged weapons 5, other permanent items 1.')
    chance += [[0, 0, 15], [0, 1, 5], [0, 2, 5], [1, 0, 1], [2, 0, 1], [6, 0, 1], [7, 0, 1], [9, 0, 1], [11, 0, 1]]

    curses = table('types Curses', ['Id', 'Name'])
    common = table('Table 8-38 Cursed Item Common Curses', ['Min', 'Max', 'Id'])
    curses.append([0, 'None'])
    for r in read_rows(os.path.join(TABLES, MAGIC_VI + '08_cursed_items.csv')):
        low, high = bounds(r[0])
        if low is not None:
            curses.append([len(curses), r[1].strip()])
            common.append([low, high, curses[-1][0]])
    intermittent = table('types Curses Intermittent', ['Id', 'Name'])
    intermittent += [[1, 'Unreliable'], [2, 'Dependent'], [3, 'Uncontrolled']]
    situations = table('types Curses Dependent', ['Id', 'Name'])
    situation_rolls = table('Table ZKB231 Situation', ['Min', 'Max', 'Id'])
    for r in read_rows(os.path.join(TABLES, MAGIC_VI + '09_cursed_items.csv'))[1:]:
        low, high = bounds(r[0])
        if low is not None:
            situations.append([len(situations) + 1, r[1].strip()])
            situation_rolls.append([low, high, len(situations)])
    drawbacks = table('types Curses Drawback', ['Id', 'Name'])
    drawback_rolls = table('Table ZKB232 Drawback', ['Min', 'Max', 'Id'])
    for r in read_rows(os.path.join(TABLES, MAGIC_VI + '10_cursed_items.csv'))[1:]:
        low, high = bounds(r[0])
        if low is not None:
            drawbacks.append([len(drawbacks) + 1, r[1].strip()[:100]])
            drawback_rolls.append([low, high, len(drawbacks)])


# ---------------------------------------------------------------- specific cursed items

# The magic weapons and armor among the specific cursed items: the item they appear to be.
CURSED_BASES = {'-2 sword, cursed': ('info Weapons', 'Longsword', -2),
                'Spear, cursed backbiter': ('info Weapons', 'Shortspear', 2),
                'Mace of blood': ('info Weapons', 'Mace, heavy', 3),
                'Net of snaring': ('info Weapons', 'Net', 3),
                'Sword, berserking': ('info Weapons', 'Greatsword', 2),
                'Armor of rage': ('info Armor', 'Full plate', 1),
                'Armor of arrow attraction': ('info Armor', 'Full plate', 3)}
CURSED_COLUMNS = {'info Weapons': (0, 'WeaponId'), 'info Armor': (1, 'ArmorId'), 'info Potions': (5, 'PotionId'),
                  'info Rings': (6, 'RingId'), 'info Wondrous Items': (11, 'WondrousId')}


def cursed_items():
    columns = ['WeaponId', 'ArmorId', 'ShieldId', 'PotionId', 'RingId', 'WondrousId']
    rolls = table('Table 8-39 Specific Cursed Items', ['Min', 'Max', 'Name', 'ItemType'] + columns,
                  'ItemType: 0 weapon, 1 armor, 5 potion, 6 ring, 11 wondrous item; the item is a row of its\n'
                  'own, priced as the table prices it (0 where it has no price).')
    source = MAGIC_VI + '11_specific_cursed_items.csv'
    for r in read_rows(os.path.join(TABLES, source))[1:]:
        low, high = bounds(r[0])
        if low is None:
            continue
        name, cost = r[1].strip(), price(r[2])
        if name in CURSED_BASES:
            info, base_name, bonus = CURSED_BASES[name]
            target = ROWS[info]
            header = target['header']
            row = list(next(b for b in target['rows'] if b[1] == base_name))
            row[0], row[1], row[2], row[3] = '', name, cost, 2
            row[header.index('IsMagic')], row[header.index('MagicBonus')] = 1, bonus
            row[header.index('CanBeMagic')] = 0
            target['rows'].append(row)
            key = name
        elif name.startswith('Ring of '):
            info, key = 'info Rings', name[len('Ring of '):].capitalize()
            ROWS[info]['rows'].append([key, cost])
        elif name.startswith('Potion of '):
            info, key = 'info Potions', name[len('Potion of '):].capitalize() + ' (potion)'
            ROWS[info]['rows'].append([key, cost])
        else:
            info, key = 'info Wondrous Items', name
            ROWS[info]['rows'].append([key, cost, 1])  # no class of their own: the table's default
        item_type, column = CURSED_COLUMNS[info]
        cells = ['' for _ in columns]
        cells[columns.index(column)] = key
        rolls.append([low, high, name, item_type] + cells)

    categories = table('types Intelligent Categories', ['Id', 'Name'],
                       'The kinds of intelligent item by their mental scores and what they can do.')
    source = MAGIC_VI + '02_item_intelligence_wisdom_charisma_and_capabilities.csv'
    for r in read_rows(os.path.join(TABLES, source))[1:]:
        if bounds(r[0])[0] is not None:
            powers = re.sub(r'\d+$', '', r[3].strip())
            categories.append([len(categories), f'{r[1].strip()}; {powers[:1].lower()}{powers[1:]}'])


# ---------------------------------------------------------------- class extras

# A blackguard who was a paladin gains these, from the lowest paladin level of each step.
FALLEN_PALADIN = [(1, 'Smite good 1/day', 0), (3, 'Lay on hands', 0), (5, 'Sneak attack +1d6', 0),
                  (7, 'Fiendish servant', 0), (9, 'Turn undead', 0), (11, 'Extra feat', 2)]


def class_extras():
    features = ROWS['info Features']['rows']
    fallen = table('info Fallen Paladin Features', ['Level', 'FeatureId'],
                   'Level: the paladin level from which a blackguard who was a paladin gains the feature.\n'
                   'They stand alone (group 0), apart from the blackguard\'s own steps.')
    for level, name, ftype in FALLEN_PALADIN:
        full = f'{name} (Fallen paladin)'
        features.append(['', full, full, 0, ftype])
        fallen.append([level, full])
    bard = table('info Bard Weapon Proficiency', ['Id'], 'The martial weapons of the bard\'s proficiencies.')
    bard += [[w.strip()] for w in CLASS_WEAPONS['Bard'].split(';')]


# ---------------------------------------------------------------- mundane treasure

MUNDANE = 'basic-rules-and-legal__treasure__07_mundane_items.csv'
# The nested table's sub-tables, each under the d% range of the row that selects it.
MUNDANE_GROUPS = ['Alchemical item', 'Armor', 'Weapons', 'Tools and gear']
MUNDANE_WEAPONS = {'masterwork common melee weapon': 7, 'masterwork uncommon weapon': 8,
                   'masterwork common ranged weapon': 9}
# Names the mundane table gives differently from the equipment list.
MUNDANE_GOODS = {'alchemist\'s fire': 'Alchemist\'s fire (flask)', 'acid': 'Acid (flask)',
                 'smokesticks': 'Smokestick', 'holy water': 'Holy water (flask)',
                 'antitoxin': 'Antitoxin (vial)', 'everburning torch': 'Everburning torch',
                 'tanglefoot bags': 'Tanglefoot bag', 'thunderstones': 'Thunderstone',
                 'backpack, empty': 'Backpack (empty)', 'lock, simple': 'Lock, Very simple',
                 'lock, average': 'Lock, Average', 'lock, good': 'Lock, Good',
                 'lock, superior': 'Lock, Amazing'}


def mundane_leaves():
    """The nested mundane items table as (share of 1, row) leaves; a row is
    [MundaneType, IsMasterwork, DieCount, DieType, WeaponId, ArmorId, ShieldId, GoodsId, SizeTable]."""
    find_armor, find_shield = matcher('info Armor'), matcher('info Shield')
    goods = {g[1].lower(): g[1] for g in ROWS['info Goods']['rows']}
    leaves, outer, inner, sized = [], 0, None, ''
    for low_high, text in read_rows(os.path.join(TABLES, MUNDANE))[1:]:
        low, high = bounds(low_high)
        width = (high - low + 1) / 100
        label = re.sub(r'\s*\((?:roll|\d[^)]*gp)[^)]*\)$', '', text.strip())
        if label.split(' (')[0] in MUNDANE_GROUPS:
            outer, inner, sized = width, None, mundane_sizes(text)
            continue
        if label in ('Darkwood', 'Masterwork shield'):
            inner = (width, label)
            continue
        share = outer * width * (inner[0] if inner else 1)
        masterwork = int(label.lower().startswith('masterwork ') or (inner or (0, ''))[1] == 'Masterwork shield')
        item = re.sub(r'^masterwork ', '', label, flags=re.I)
        item = re.sub(r'^(light|heavy) (wooden|steel) shield$', r'Shield, \1 \2', item, flags=re.I)
        count = re.search(r'\((\d+)d(\d+) ', text)
        dice = [int(count.group(1)), int(count.group(2))] if count else [1, 1]
        if label.lower() in MUNDANE_WEAPONS:
            row = [MUNDANE_WEAPONS[label.lower()], 1, 1, 1, '', '', '', '']
        elif inner and inner[1] == 'Darkwood':
            row = [3, 0, 1, 1, '', '', find_shield('Darkwood ' + item), '']
        elif find_shield(item):
            row = [3, masterwork, 1, 1, '', '', find_shield(item), '']
        elif find_armor(item):
            row = [2, masterwork, 1, 1, '', find_armor(item), '', '']
        else:
            name = MUNDANE_GOODS.get(label.split(' (')[0].lower(), label)
            row = [4, 0] + dice + ['', '', '', goods[name.lower()]]
        leaves.append((share, row + [sized]))
    return leaves


def mundane_sizes(text):
    """The size roll a group of the mundane table gives in words, as [Table 7-7 Armor Size];
    the name of that table, or '' for a group without one."""
    rolls = re.findall(r'(\d+)-(\d+) = (\w+)', text)
    if not rolls:
        return ''
    sizes = table('Table 7-7 Armor Size', ['Min', 'Max', 'SizeId'],
                  'The size of armor and shields in a mundane treasure.')
    sizes += [[int(low), int(high), size] for low, high, size in rolls]
    return '[Table 7-7 Armor Size]'


def whole_percents(shares):
    """Whole percents for shares of 1 (largest remainder), every share keeping at least 1."""
    exact = [s * 100 for s in shares]
    counts = [int(e) for e in exact]
    order = sorted(range(len(exact)), key=lambda i: exact[i] - counts[i], reverse=True)
    for i in order[:100 - sum(counts)]:
        counts[i] += 1
    for i in [i for i, c in enumerate(counts) if c == 0]:
        donor = max((j for j in range(len(counts)) if counts[j] > 1), key=lambda j: counts[j] - exact[j])
        counts[donor] -= 1
        counts[i] = 1
    return counts


def mundane_items():
    leaves = mundane_leaves()
    assert abs(sum(p for p, _ in leaves) - 1) < 1e-9
    rows = table('Table 7-7 Mundane Items',
                 ['Min', 'Max', 'MundaneType', 'IsMasterwork', 'DieCount', 'DieType', 'WeaponId', 'ArmorId',
                  'ShieldId', 'GoodsId', 'SizeTable'],
                 'The open rules nest sub-tables under this one (alchemical items, armor, shields,\n'
                 'weapons, tools); one d% roll here stands for the nested rolls, each item holding its\n'
                 'share in whole percents (every item at least 1). Count: DieCount dice of DieType.\n'
                 'SizeTable: the table that rolls the size of the item, if any.')
    low = 1
    for count, (_, row) in zip(whole_percents([p for p, _ in leaves]), leaves):
        rows.append([low, low + count - 1] + row)
        low += count
    # Mighty composite bows by rating, each rating as likely as the others, as in the common
    # ranged weapons table.
    for name, bow in (('Table 7-8 Random Mighty Composite Shortbow', 'Shortbow, composite'),
                      ('Table 7-9 Random Mighty Composite Longbow', 'Longbow, composite')):
        bows = table(name, ['Min', 'Max', 'ItemId', 'IsMasterwork'])
        top = MIGHTY_BOWS[bow]
        for rating in range(1, top + 1):
            bows.append([(rating - 1) * 100 // top + 1, rating * 100 // top, mighty_name(bow, rating), 0])


# ---------------------------------------------------------------- magic item bonuses

# Stacking classes (BonusType) and what a bonus changes (ModifyType), as the rules code reads them.
ARMOR_BONUS, COMPETENCE, DEFLECTION, ENHANCEMENT, INHERENT, INSIGHT, LUCK, NATURAL, RESISTANCE = \
    1, 3, 4, 6, 8, 9, 10, 12, 14
ON_SKILL, ON_AC, ON_ABILITY, ON_SAVES, ON_INITIATIVE, ON_ABILITY_SKILLS, ON_ALL_SKILLS, ON_ATTACK = \
    0, 1, 2, 4, 5, 6, 7, 8
BONUS_HEADER = ['Id', 'BonusType', 'Bonus', 'ModifyType', 'SkillId', 'AbilityType']
BONUS_COMMENT = ('BonusType: the stacking class (1 armor, 3 competence, 4 deflection, 6 enhancement,\n'
                 '8 inherent, 9 insight, 10 luck, 12 natural armor, 14 resistance). ModifyType: 0 the skill\n'
                 'SkillId, 1 armor class, 2 the ability AbilityType, 4 saves, 5 initiative, 6 skills keyed to\n'
                 'AbilityType, 7 all skills, 8 attack.')

# Items whose bonus the name tells: pattern, stacking class, what it changes, ability.
NAMED_BONUSES = [
    (r'Amulet of natural armor \+(\d)', NATURAL, ON_AC, -1),
    (r'Bracers of armor \+(\d)', ARMOR_BONUS, ON_AC, -1),
    (r'Cloak of resistance \+(\d)', RESISTANCE, ON_SAVES, -1),
    (r'Protection \+(\d)', DEFLECTION, ON_AC, -1),
    (r'Belt of giant Strength \+(\d)', ENHANCEMENT, ON_ABILITY, 0),
    (r'Gloves of Dexterity \+(\d)', ENHANCEMENT, ON_ABILITY, 1),
    (r'Amulet of health \+(\d)', ENHANCEMENT, ON_ABILITY, 2),
    (r'Headband of intellect \+(\d)', ENHANCEMENT, ON_ABILITY, 3),
    (r'Periapt of Wisdom \+(\d)', ENHANCEMENT, ON_ABILITY, 4),
    (r'Cloak of Charisma \+(\d)', ENHANCEMENT, ON_ABILITY, 5),
    (r'Manual of gainful exercise \+(\d)', INHERENT, ON_ABILITY, 0),
    (r'Manual of quickness in action \+(\d)', INHERENT, ON_ABILITY, 1),
    (r'Manual of bodily health \+(\d)', INHERENT, ON_ABILITY, 2),
    (r'Tome of clear thought \+(\d)', INHERENT, ON_ABILITY, 3),
    (r'Tome of understanding \+(\d)', INHERENT, ON_ABILITY, 4),
    (r'Tome of leadership and influence \+(\d)', INHERENT, ON_ABILITY, 5),
]
# Bonuses that only the item's rules tell: item, [(class, bonus, changes, skill, ability)].
TOLD_BONUSES = {
    'info Wondrous Items': {
        'Gauntlets of ogre power': [(ENHANCEMENT, 2, ON_ABILITY, '', 0)],
        'Boots of elvenkind': [(COMPETENCE, 5, ON_SKILL, 'Move Silently', -1)],
        'Cloak of elvenkind': [(COMPETENCE, 5, ON_SKILL, 'Hide', -1)],
        'Eyes of the eagle': [(COMPETENCE, 5, ON_SKILL, 'Spot', -1)],
        'Lens of detection': [(COMPETENCE, 5, ON_SKILL, 'Search', -1)],
        'Boots of striding and springing': [(COMPETENCE, 5, ON_SKILL, 'Jump', -1)],
        'Gloves of swimming and climbing': [(COMPETENCE, 5, ON_SKILL, 'Swim', -1),
                                            (COMPETENCE, 5, ON_SKILL, 'Climb', -1)],
        'Circlet of persuasion': [(COMPETENCE, 3, ON_ABILITY_SKILLS, '', 5)],
        'Stone of good luck (luckstone)': [(LUCK, 1, ON_SAVES, '', -1), (LUCK, 1, ON_ALL_SKILLS, '', -1)],
        'Robe of the archmagi': [(ARMOR_BONUS, 5, ON_AC, '', -1), (RESISTANCE, 4, ON_SAVES, '', -1)],
    },
    'info Rings': {
        'Climbing': [(COMPETENCE, 5, ON_SKILL, 'Climb', -1)],
        'Climbing, improved': [(COMPETENCE, 10, ON_SKILL, 'Climb', -1)],
        'Jumping': [(COMPETENCE, 5, ON_SKILL, 'Jump', -1)],
        'Jumping, improved': [(COMPETENCE, 10, ON_SKILL, 'Jump', -1)],
        'Swimming': [(COMPETENCE, 5, ON_SKILL, 'Swim', -1)],
        'Swimming, improved': [(COMPETENCE, 10, ON_SKILL, 'Swim', -1)],
        'Chameleon power': [(COMPETENCE, 10, ON_SKILL, 'Hide', -1)],
    },
    'info Rods': {'Alertness': [(INSIGHT, 1, ON_INITIATIVE, '', -1)]},
    'info Staffs': {'Power': [(LUCK, 2, ON_AC, '', -1), (LUCK, 2, ON_SAVES, '', -1)]},
    'info Armor': {'Breastplate of command': [(COMPETENCE, 2, ON_ABILITY_SKILLS, '', 5)]},
}
# Armor special abilities that add to a skill: ability stem, skill; plain +5, improved +10,
# greater +15.
SKILL_ABILITIES = {'Slick': 'Escape Artist', 'Shadow': 'Hide', 'Silent moves': 'Move Silently'}
STEP_BONUS = {'': 5, 'improved': 10, 'greater': 15}
ABILITY_NAMES = {'strength': 0, 'dexterity': 1, 'constitution': 2, 'intelligence': 3, 'wisdom': 4,
                 'charisma': 5}
BONUS_WORDS = {'insight': INSIGHT, 'enhancement': ENHANCEMENT, 'competence': COMPETENCE}


def ioun_bonuses():
    """Ioun stone bonuses, read from the stones' effect table."""
    out = {}
    source = MAGIC_V + '13_wondrous_item_descriptions.csv'
    for r in read_rows(os.path.join(TABLES, source))[1:]:
        if len(r) < 3:
            continue
        m = re.match(r'\+(\d+) (\w+) bonus (?:to|on) (.+)$', r[2].strip())
        if not m:
            continue
        bonus, kind, what = int(m.group(1)), BONUS_WORDS[m.group(2)], m.group(3).lower()
        if what == 'ac':
            rows = [(kind, bonus, ON_AC, '', -1)]
        elif what in ABILITY_NAMES:
            rows = [(kind, bonus, ON_ABILITY, '', ABILITY_NAMES[what])]
        else:  # attack rolls, saves, skill checks, and ability checks
            rows = [(kind, bonus, ON_ATTACK, '', -1), (kind, bonus, ON_SAVES, '', -1),
                    (kind, bonus, ON_ALL_SKILLS, '', -1)]
        out[f'Ioun stone, {r[0].strip().lower()} {r[1].strip().lower()}'] = rows
    return out


def item_bonuses():
    told = dict(TOLD_BONUSES)
    told['info Wondrous Items'] = {**told['info Wondrous Items'], **ioun_bonuses()}
    for info, name in (('info Wondrous Items', 'info Wondrous Bonuses'), ('info Rings', 'info Ring Bonuses'),
                       ('info Rods', 'info Rod Bonuses'), ('info Staffs', 'info Staff Bonuses'),
                       ('info Armor', 'info Armor Bonuses')):
        rows = table(name, BONUS_HEADER, BONUS_COMMENT)
        column = 1 if info == 'info Armor' else 0
        for item in (r[column] for r in ROWS[info]['rows']):
            for pattern, kind, changes, ability in NAMED_BONUSES:
                m = re.fullmatch(pattern, item)
                if m:
                    rows.append([item, kind, int(m.group(1)), changes, '', ability])
            for kind, bonus, changes, skill, ability in told.get(info, {}).get(item, []):
                rows.append([item, kind, bonus, changes, skill, ability])
        missing = set(told.get(info, {})) - {r[0] for r in rows}
        assert not missing, (name, missing)

    special = table('info Armor Shield Special Bonuses', BONUS_HEADER, BONUS_COMMENT)
    for ability_id, ability, *_ in ROWS['Table 8-6 and 8-7 Special Abilities']['rows']:
        stem, _, step = ability.partition(', ')
        if stem in SKILL_ABILITIES and step in STEP_BONUS:
            special.append([ability_id, COMPETENCE, STEP_BONUS[step], ON_SKILL, SKILL_ABILITIES[stem], -1])

    weapons = table('info Weapon Bonuses', BONUS_HEADER, BONUS_COMMENT)
    for name in (r[1] for r in ROWS['info Weapons']['rows'] if r[1].startswith('Luck blade')):
        weapons.append([name, LUCK, 1, ON_SAVES, '', -1])
    damage = table('info Weapon Bonuses Damage', ['Id', 'DieType', 'Bonus', 'Name'],
                   'Extra damage of a specific weapon: Bonus dice of DieType sides.')
    damage += [['Flame tongue', 6, 1, 'fire'], ['Frost brand', 6, 1, 'cold']]

    abilities = table('info Intelligent Abilities Bonuses', BONUS_HEADER,
                      BONUS_COMMENT + '\nAn intelligent item\'s ranks in a skill count as a bonus for its wielder.')
    skills = {r[2].lower(): r[2] for r in ROWS['info Skill']['rows']}
    for ability_id, text in ROWS['types Intelligent Item Abilities']['rows']:
        m = re.match(r'Item has (\d+) ranks in (.+)$', text)
        if m and m.group(2).lower() in skills:
            abilities.append([ability_id, COMPETENCE, int(m.group(1)), ON_SKILL, skills[m.group(2).lower()], -1])
    powers = table('info Intelligent Purpose Powers Bonuses', BONUS_HEADER, BONUS_COMMENT)
    for power_id, text in ROWS['types Intelligent Item Special Purpose Powers']['rows']:
        m = re.match(r'Wielder gets \+(\d+) luck bonus on attacks, saves, and checks', text)
        if m:
            for changes in (ON_ATTACK, ON_SAVES, ON_ALL_SKILLS):
                powers.append([power_id, LUCK, int(m.group(1)), changes, '', -1])


# ---------------------------------------------------------------- wondrous sub-items

def wondrous_subs():
    """The kinds, contents or results that some wondrous items choose among, by roll order."""
    rows = table('info Wondrous Items Sub', ['Id', 'SubId', 'Name', 'CoinCount'],
                 'SubId: the order of the item\'s own roll or list; CoinCount: a price of its own, if any.')

    def source(number):
        return read_rows(os.path.join(TABLES, MAGIC_V + f'{number:02d}_wondrous_item_descriptions.csv'))

    def add(item, names):
        kept = []
        for name in (re.split(r'\s*—', n.strip())[0][:99] for n in names):
            name += ')' * (name.count('(') - name.count(')'))
            if not kept or kept[-1] != name:
                kept.append(name)
        for i, name in enumerate(kept, 1):
            rows.append([item, i, name, 0])

    bags = source(6)
    for column, colour in ((1, 'gray'), (3, 'rust'), (5, 'tan')):
        add(f'Bag of tricks, {colour}', [r[column] for r in bags[2:] if len(r) > column and r[column].strip()])
    add('Deck of illusions', [f'{r[0].strip()} ({r[1].strip()}): {r[2].strip()}' for r in source(11)[1:]
                              if len(r) > 2 and r[0] != 'Playing Card'])
    add('Horn of Valhalla', [r[1] for r in source(12)[1:]])
    flask = source(14)[1:]
    add('Iron flask', [r[1] for r in flask] + [r[3] for r in flask if len(r) > 3 and r[3].strip()])
    add('Robe of useful items', [r[1] for r in source(16)[1:] if len(r) > 1])
    add('Cube of force', [f'Face {r[0].strip()}: {r[3].strip()}' for r in source(9)[1:] if len(r) > 3])


def main():
    skill_names = skills()
    synergies()
    class_names = [c['name'] for c in read(os.path.join(RAW, 'class.csv'))]
    feat_names, untold = feats(skill_names, class_names)
    classes(skill_names, feat_names)
    requirements(skill_names, feat_names)
    spells(class_names)
    equipment()
    loads()
    monk()
    companions()
    features = ROWS['info Features']['rows']
    companion_features('Familiar', 'basic-rules-and-legal__character-classes-ii__10_familiars.csv', features)
    companion_features('Mount', 'basic-rules-and-legal__character-classes-ii__02_the_paladin_s_mount.csv', features)
    companion_features('Fiendish', 'basic-rules-and-legal__prestige-classes__07_the_blackguard_s_fiendish_servant.csv',
                       features)
    treasure()
    magic()
    designated_foes()
    specific_items()
    magic_items()
    intelligent_and_cursed()
    cursed_items()
    class_extras()
    mundane_items()
    item_bonuses()
    wondrous_subs()
    write_all()
    print(f'{len(class_names)} classes, {len(feat_names)} feats, {untold} prerequisites kept as text only',
          file=sys.stderr)


if __name__ == '__main__':
    main()
