<?xml version="1.0" encoding="UTF-8"?>
<!-- The values of the stat block lines, shared by the text, HTML and Markdown layouts.
     Each template is called with a character or monster element as the context node and
     writes the value only; a layout decides labels and line breaks. A line whose element the
     document lacks is left out by the layouts (see sb-has-line). -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <xsl:variable name="sb-lower" select="'abcdefghijklmnopqrstuvwxyz'"/>
  <xsl:variable name="sb-upper" select="'ABCDEFGHIJKLMNOPQRSTUVWXYZ'"/>
  <xsl:variable name="sb-none" select="'&#8212;'"/>

  <!-- "Humanoid (player race)" reads "Humanoid" in a stat block. -->
  <xsl:template name="sb-type-word">
    <xsl:param name="type"/>
    <xsl:choose>
      <xsl:when test="contains($type, ' (')"><xsl:value-of select="substring-before($type, ' (')"/></xsl:when>
      <xsl:otherwise><xsl:value-of select="$type"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- "Dwarf Fighter 4": the race and every class with levels; nothing for a monster. -->
  <xsl:template name="sb-race-classes">
    <xsl:if test="classes/string">
      <xsl:value-of select="race"/>
      <xsl:for-each select="classes/class[level &gt; 0]">
        <xsl:value-of select="concat(' ', name, ' ', level)"/>
      </xsl:for-each>
    </xsl:if>
  </xsl:template>

  <xsl:template name="sb-size-type">
    <xsl:value-of select="size/category"/>
    <xsl:text> </xsl:text>
    <xsl:call-template name="sb-type-word"><xsl:with-param name="type" select="size/type"/></xsl:call-template>
    <xsl:if test="size/subtype"><xsl:value-of select="concat(' (', size/subtype, ')')"/></xsl:if>
  </xsl:template>

  <xsl:template name="sb-hit-dice">
    <xsl:for-each select="hit-dice/hit-die">
      <xsl:if test="position() &gt; 1"><xsl:text> plus </xsl:text></xsl:if>
      <xsl:value-of select="concat(die, bonus)"/>
    </xsl:for-each>
    <xsl:value-of select="concat(' (', hit-points, ' hp)')"/>
  </xsl:template>

  <!-- "40 ft. (8 squares), climb 20 ft., fly 60 ft. (good)"; slowed by armor or load on land:
       "30 ft. in armor (6 squares); base speed 40 ft." -->
  <xsl:template name="sb-speed">
    <xsl:for-each select="speeds/speed">
      <xsl:if test="position() &gt; 1"><xsl:text>, </xsl:text></xsl:if>
      <xsl:if test="name != 'Land'">
        <xsl:value-of select="concat(translate(name, $sb-upper, $sb-lower), ' ')"/>
      </xsl:if>
      <xsl:choose>
        <xsl:when test="name = 'Land' and adjusted">
          <xsl:value-of select="concat(adjusted, ' ft. in armor (', floor(adjusted div 5), ' squares); base speed ', value, ' ft.')"/>
        </xsl:when>
        <xsl:otherwise>
          <xsl:value-of select="concat(value, ' ft.')"/>
          <xsl:choose>
            <xsl:when test="maneuverability">
              <xsl:value-of select="concat(' (', translate(maneuverability, $sb-upper, $sb-lower), ')')"/>
            </xsl:when>
            <xsl:when test="name = 'Land'"><xsl:value-of select="concat(' (', floor(value div 5), ' squares)')"/></xsl:when>
          </xsl:choose>
        </xsl:otherwise>
      </xsl:choose>
    </xsl:for-each>
  </xsl:template>

  <xsl:template name="sb-signed">
    <xsl:param name="value"/>
    <xsl:if test="$value &gt;= 0">+</xsl:if><xsl:value-of select="$value"/>
  </xsl:template>

  <!-- ", +5 natural" for a part that is there, nothing otherwise. -->
  <xsl:template name="sb-ac-part">
    <xsl:param name="name"/>
    <xsl:param name="label"/>
    <xsl:variable name="value" select="armor-class/modifiers/modifier[@name = $name]/@value"/>
    <xsl:if test="$value and $value != 0">
      <xsl:text>, </xsl:text>
      <xsl:call-template name="sb-signed"><xsl:with-param name="value" select="$value"/></xsl:call-template>
      <xsl:value-of select="concat(' ', $label)"/>
    </xsl:if>
  </xsl:template>

  <!-- "16 (-1 size, -1 Dex, +5 natural, +3 armor), touch 8, flat-footed 16": the parts in the
       published order. -->
  <xsl:template name="sb-armor-class">
    <xsl:variable name="parts">
      <xsl:call-template name="sb-ac-part"><xsl:with-param name="name" select="'size'"/><xsl:with-param name="label" select="'size'"/></xsl:call-template>
      <xsl:call-template name="sb-ac-part"><xsl:with-param name="name" select="'ability'"/><xsl:with-param name="label" select="'Dex'"/></xsl:call-template>
      <xsl:call-template name="sb-ac-part"><xsl:with-param name="name" select="'natural'"/><xsl:with-param name="label" select="'natural'"/></xsl:call-template>
      <xsl:call-template name="sb-ac-part"><xsl:with-param name="name" select="'armor'"/><xsl:with-param name="label" select="'armor'"/></xsl:call-template>
      <xsl:call-template name="sb-ac-part"><xsl:with-param name="name" select="'shield'"/><xsl:with-param name="label" select="'shield'"/></xsl:call-template>
      <xsl:call-template name="sb-ac-part"><xsl:with-param name="name" select="'magic'"/><xsl:with-param name="label" select="'deflection'"/></xsl:call-template>
      <xsl:call-template name="sb-ac-part"><xsl:with-param name="name" select="'feature'"/><xsl:with-param name="label" select="'class'"/></xsl:call-template>
      <xsl:call-template name="sb-ac-part"><xsl:with-param name="name" select="'misc'"/><xsl:with-param name="label" select="'misc'"/></xsl:call-template>
      <xsl:call-template name="sb-ac-part"><xsl:with-param name="name" select="'user'"/><xsl:with-param name="label" select="'other'"/></xsl:call-template>
    </xsl:variable>
    <xsl:value-of select="armor-class/total"/>
    <xsl:if test="string($parts)"><xsl:value-of select="concat(' (', substring($parts, 3), ')')"/></xsl:if>
    <xsl:value-of select="concat(', touch ', armor-class/touch, ', flat-footed ', armor-class/flat-footed)"/>
  </xsl:template>

  <xsl:template name="sb-base-attack-grapple">
    <xsl:value-of select="concat(attacks/base, '/', attacks/grapple)"/>
  </xsl:template>

  <xsl:template name="sb-space-reach">
    <xsl:value-of select="concat(race-details/space, ' ft./', race-details/reach, ' ft.')"/>
  </xsl:template>

  <xsl:template name="sb-list">
    <xsl:param name="items"/>
    <xsl:choose>
      <xsl:when test="$items">
        <xsl:for-each select="$items">
          <xsl:sort select="."/>
          <xsl:if test="position() &gt; 1"><xsl:text>, </xsl:text></xsl:if>
          <xsl:value-of select="."/>
        </xsl:for-each>
      </xsl:when>
      <xsl:otherwise><xsl:value-of select="$sb-none"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- One entry of a special attack or quality line: ", low-light vision". Entries after the
       first start in lower case, and a range in feet ends with the abbreviation's period. -->
  <xsl:template name="sb-special-entry">
    <xsl:param name="text"/>
    <xsl:text>, </xsl:text>
    <xsl:value-of select="concat(translate(substring($text, 1, 1), $sb-upper, $sb-lower), substring($text, 2))"/>
    <xsl:if test="substring($text, string-length($text) - 2) = ' ft'">.</xsl:if>
  </xsl:template>

  <!-- The named entries, each in the words of a racial feature "PREFIX: name ..." when the race
       keeps one (it holds the range or the DC), then the features of that kind that name
       nothing in the code table. -->
  <xsl:template name="sb-special">
    <xsl:param name="names"/>
    <xsl:param name="prefix"/>
    <xsl:variable name="features" select="features/race-features/race-feature[starts-with(., $prefix)]"/>
    <xsl:variable name="entries">
      <xsl:for-each select="$names">
        <xsl:variable name="name" select="."/>
        <xsl:variable name="key" select="translate($name, $sb-upper, $sb-lower)"/>
        <xsl:variable name="worded" select="$features[starts-with(translate(substring-after(., $prefix), $sb-upper, $sb-lower), $key)][1]"/>
        <xsl:call-template name="sb-special-entry">
          <xsl:with-param name="text">
            <xsl:choose>
              <xsl:when test="$worded"><xsl:value-of select="substring-after($worded, $prefix)"/></xsl:when>
              <xsl:otherwise><xsl:value-of select="$name"/></xsl:otherwise>
            </xsl:choose>
          </xsl:with-param>
        </xsl:call-template>
      </xsl:for-each>
      <xsl:for-each select="$features">
        <xsl:variable name="rest" select="substring-after(., $prefix)"/>
        <xsl:variable name="restKey" select="translate($rest, $sb-upper, $sb-lower)"/>
        <xsl:if test="not($names[starts-with($restKey, translate(., $sb-upper, $sb-lower))])">
          <xsl:call-template name="sb-special-entry"><xsl:with-param name="text" select="$rest"/></xsl:call-template>
        </xsl:if>
      </xsl:for-each>
    </xsl:variable>
    <xsl:choose>
      <xsl:when test="string($entries)">
        <xsl:value-of select="concat(translate(substring($entries, 3, 1), $sb-lower, $sb-upper), substring($entries, 4))"/>
      </xsl:when>
      <xsl:otherwise><xsl:value-of select="$sb-none"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template name="sb-special-attacks">
    <xsl:call-template name="sb-special">
      <xsl:with-param name="names" select="features/special-attacks/special-attack"/>
      <xsl:with-param name="prefix" select="'Special attack: '"/>
    </xsl:call-template>
  </xsl:template>

  <xsl:template name="sb-special-qualities">
    <xsl:call-template name="sb-special">
      <xsl:with-param name="names" select="features/special-qualities/special-quality"/>
      <xsl:with-param name="prefix" select="'Special quality: '"/>
    </xsl:call-template>
  </xsl:template>

  <xsl:template name="sb-saves">
    <xsl:for-each select="saving-throws/saving-throw">
      <xsl:if test="position() &gt; 1"><xsl:text>, </xsl:text></xsl:if>
      <xsl:value-of select="concat(abbr, ' ', total)"/>
    </xsl:for-each>
  </xsl:template>

  <!-- "Str 21, Dex 8, Con —" -->
  <xsl:template name="sb-abilities">
    <xsl:for-each select="abilities/ability">
      <xsl:if test="position() &gt; 1"><xsl:text>, </xsl:text></xsl:if>
      <xsl:value-of select="concat(substring(abbr, 1, 1), translate(substring(abbr, 2), $sb-upper, $sb-lower), ' ')"/>
      <xsl:choose>
        <xsl:when test="base = '--'"><xsl:value-of select="$sb-none"/></xsl:when>
        <xsl:otherwise><xsl:value-of select="base"/></xsl:otherwise>
      </xsl:choose>
    </xsl:for-each>
  </xsl:template>

  <!-- Skills with ranks or a bonus of their own; those a creature only rolls on its ability
       score stay off the line, as in the published blocks. -->
  <xsl:template name="sb-skills">
    <xsl:variable name="shown" select="skills/skill[modifiers/modifier[(@name = 'rank' or @name = 'race' or @name = 'magic' or @name = 'feat' or @name = 'other') and @value != 0]]"/>
    <xsl:choose>
      <xsl:when test="$shown">
        <xsl:for-each select="$shown">
          <xsl:sort select="name"/>
          <xsl:if test="position() &gt; 1"><xsl:text>, </xsl:text></xsl:if>
          <xsl:value-of select="concat(name, ' ', total)"/>
        </xsl:for-each>
      </xsl:when>
      <xsl:otherwise><xsl:value-of select="$sb-none"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template name="sb-feats">
    <xsl:call-template name="sb-list"><xsl:with-param name="items" select="features/feats/feat/name"/></xsl:call-template>
  </xsl:template>

  <!-- "Usually chaotic evil"; a character's alignment as it stands. -->
  <xsl:template name="sb-alignment">
    <xsl:choose>
      <xsl:when test="alignment/modifier">
        <xsl:value-of select="concat(alignment/modifier, ' ', translate(alignment/name, $sb-upper, $sb-lower))"/>
      </xsl:when>
      <xsl:otherwise><xsl:value-of select="alignment/name"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- The stat block as <line label="...">value</line> elements in the published order, for a
       layout to read through exsl:node-set. A line whose element the document does not hold is
       left out: organization and level adjustment are not in the records yet, and a character
       has no challenge rating or advancement of its own. -->
  <xsl:template name="sb-build-lines">
    <line label="Size/Type"><xsl:call-template name="sb-size-type"/></line>
    <line label="Hit Dice"><xsl:call-template name="sb-hit-dice"/></line>
    <line label="Initiative"><xsl:value-of select="initiative/total"/></line>
    <xsl:if test="speeds/speed"><line label="Speed"><xsl:call-template name="sb-speed"/></line></xsl:if>
    <line label="Armor Class"><xsl:call-template name="sb-armor-class"/></line>
    <line label="Base Attack/Grapple"><xsl:call-template name="sb-base-attack-grapple"/></line>
    <xsl:if test="attack"><line label="Attack"><xsl:value-of select="attack"/></line></xsl:if>
    <xsl:if test="full-attack"><line label="Full Attack"><xsl:value-of select="full-attack"/></line></xsl:if>
    <xsl:if test="race-details/space"><line label="Space/Reach"><xsl:call-template name="sb-space-reach"/></line></xsl:if>
    <line label="Special Attacks"><xsl:call-template name="sb-special-attacks"/></line>
    <line label="Special Qualities"><xsl:call-template name="sb-special-qualities"/></line>
    <line label="Saves"><xsl:call-template name="sb-saves"/></line>
    <line label="Abilities"><xsl:call-template name="sb-abilities"/></line>
    <line label="Skills"><xsl:call-template name="sb-skills"/></line>
    <line label="Feats"><xsl:call-template name="sb-feats"/></line>
    <xsl:if test="race-details/environment"><line label="Environment"><xsl:value-of select="race-details/environment"/></line></xsl:if>
    <xsl:if test="organization"><line label="Organization"><xsl:value-of select="organization"/></line></xsl:if>
    <xsl:if test="challenge-rating"><line label="Challenge Rating"><xsl:value-of select="challenge-rating"/></line></xsl:if>
    <xsl:if test="self::monster and race-details/treasure"><line label="Treasure"><xsl:value-of select="race-details/treasure"/></line></xsl:if>
    <xsl:if test="alignment"><line label="Alignment"><xsl:call-template name="sb-alignment"/></line></xsl:if>
    <xsl:if test="self::character and possessions"><line label="Possessions"><xsl:value-of select="possessions"/></line></xsl:if>
    <xsl:if test="self::character">
      <xsl:for-each select="items/item[intelligent or cursed]">
        <line label="{name}"><xsl:call-template name="sb-item-notes"><xsl:with-param name="separator" select="'; '"/></xsl:call-template></line>
      </xsl:for-each>
    </xsl:if>
    <xsl:if test="self::monster and race-details/advancement"><line label="Advancement"><xsl:value-of select="race-details/advancement"/></line></xsl:if>
  </xsl:template>

  <!-- What an item's name does not say, for an item element as the context node: the print
       text of its mind (its "<br>" breaks become `separator`), then its curse. -->
  <xsl:template name="sb-item-notes">
    <xsl:param name="separator"/>
    <xsl:if test="intelligent">
      <xsl:call-template name="sb-replace-breaks">
        <xsl:with-param name="text" select="intelligent/print-text"/>
        <xsl:with-param name="separator" select="$separator"/>
      </xsl:call-template>
    </xsl:if>
    <xsl:if test="cursed">
      <xsl:if test="intelligent"><xsl:value-of select="$separator"/></xsl:if>
      <xsl:value-of select="concat('Cursed: ', cursed/description)"/>
    </xsl:if>
  </xsl:template>

  <xsl:template name="sb-replace-breaks">
    <xsl:param name="text"/>
    <xsl:param name="separator"/>
    <xsl:choose>
      <xsl:when test="contains($text, '&lt;br&gt;')">
        <xsl:value-of select="concat(substring-before($text, '&lt;br&gt;'), $separator)"/>
        <xsl:call-template name="sb-replace-breaks">
          <xsl:with-param name="text" select="substring-after($text, '&lt;br&gt;')"/>
          <xsl:with-param name="separator" select="$separator"/>
        </xsl:call-template>
      </xsl:when>
      <xsl:otherwise><xsl:value-of select="$text"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- The name, and for a character "Dwarf Fighter 4" under it. -->
  <xsl:template name="sb-subtitle">
    <xsl:call-template name="sb-race-classes"/>
  </xsl:template>
</xsl:stylesheet>
