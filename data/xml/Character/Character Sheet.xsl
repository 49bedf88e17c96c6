<?xml version="1.0" encoding="UTF-8"?>
<!-- The full character sheet as HTML tables that Qt's rich text prints as they are. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">
  <xsl:import href="../Common/statblock.xsl"/>
  <xsl:output method="html" encoding="UTF-8"/>

  <xsl:template name="row">
    <xsl:param name="label"/>
    <xsl:param name="value"/>
    <tr><td bgcolor="#e8e0d0" width="30%"><b><xsl:value-of select="$label"/></b></td><td><xsl:value-of select="$value"/></td></tr>
  </xsl:template>

  <xsl:template name="modifier-cells">
    <xsl:param name="names"/>
    <xsl:param name="modifiers"/>
    <xsl:for-each select="$names">
      <xsl:variable name="name" select="."/>
      <td align="center"><xsl:value-of select="$modifiers/modifier[@name = $name]/@value"/></td>
    </xsl:for-each>
  </xsl:template>

  <!-- A text with "<br>" breaks, written as lines. -->
  <xsl:template name="sheet-breaks">
    <xsl:param name="text"/>
    <xsl:choose>
      <xsl:when test="contains($text, '&lt;br&gt;')">
        <xsl:value-of select="substring-before($text, '&lt;br&gt;')"/><br/>
        <xsl:call-template name="sheet-breaks"><xsl:with-param name="text" select="substring-after($text, '&lt;br&gt;')"/></xsl:call-template>
      </xsl:when>
      <xsl:otherwise><xsl:value-of select="$text"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template match="/">
    <html>
      <head><title><xsl:value-of select="*/name"/></title></head>
      <body>
        <xsl:apply-templates select="character | monster"/>
      </body>
    </html>
  </xsl:template>

  <xsl:template match="character | monster">
    <h1><xsl:value-of select="name"/></h1>
    <table cellspacing="0" cellpadding="3" border="1" width="100%">
      <xsl:call-template name="row"><xsl:with-param name="label" select="'Player'"/><xsl:with-param name="value" select="player"/></xsl:call-template>
      <xsl:call-template name="row"><xsl:with-param name="label" select="'Race'"/><xsl:with-param name="value" select="race"/></xsl:call-template>
      <xsl:if test="classes/string">
        <xsl:call-template name="row"><xsl:with-param name="label" select="'Classes'"/><xsl:with-param name="value" select="classes/string"/></xsl:call-template>
      </xsl:if>
      <xsl:call-template name="row"><xsl:with-param name="label" select="'Level'"/><xsl:with-param name="value" select="classes/total"/></xsl:call-template>
      <xsl:call-template name="row"><xsl:with-param name="label" select="'Alignment'"/><xsl:with-param name="value"><xsl:call-template name="sb-alignment"/></xsl:with-param></xsl:call-template>
      <xsl:call-template name="row"><xsl:with-param name="label" select="'Size and type'"/><xsl:with-param name="value"><xsl:call-template name="sb-size-type"/></xsl:with-param></xsl:call-template>
      <xsl:call-template name="row"><xsl:with-param name="label" select="'Gender'"/><xsl:with-param name="value" select="gender"/></xsl:call-template>
      <xsl:if test="age"><xsl:call-template name="row"><xsl:with-param name="label" select="'Age'"/><xsl:with-param name="value" select="age"/></xsl:call-template></xsl:if>
      <xsl:if test="size/height"><xsl:call-template name="row"><xsl:with-param name="label" select="'Height, weight'"/><xsl:with-param name="value" select="concat(size/height, ', ', size/weight)"/></xsl:call-template></xsl:if>
      <xsl:if test="deity/name"><xsl:call-template name="row"><xsl:with-param name="label" select="'Deity'"/><xsl:with-param name="value" select="deity/name"/></xsl:call-template></xsl:if>
      <xsl:call-template name="row"><xsl:with-param name="label" select="'Experience'"/><xsl:with-param name="value" select="experience"/></xsl:call-template>
    </table>

    <h2>Abilities</h2>
    <table cellspacing="0" cellpadding="3" border="1">
      <tr bgcolor="#e8e0d0"><th>Ability</th><th>Score</th><th>Modifier</th></tr>
      <xsl:for-each select="abilities/ability">
        <tr><td><xsl:value-of select="name"/></td><td align="center"><xsl:value-of select="base"/></td><td align="center"><xsl:value-of select="modifier"/></td></tr>
      </xsl:for-each>
    </table>

    <h2>Combat</h2>
    <table cellspacing="0" cellpadding="3" border="1" width="100%">
      <xsl:call-template name="row"><xsl:with-param name="label" select="'Hit points'"/><xsl:with-param name="value"><xsl:call-template name="sb-hit-dice"/></xsl:with-param></xsl:call-template>
      <xsl:call-template name="row"><xsl:with-param name="label" select="'Armor class'"/><xsl:with-param name="value"><xsl:call-template name="sb-armor-class"/></xsl:with-param></xsl:call-template>
      <xsl:call-template name="row"><xsl:with-param name="label" select="'Initiative'"/><xsl:with-param name="value" select="initiative/total"/></xsl:call-template>
      <xsl:call-template name="row"><xsl:with-param name="label" select="'Speed'"/><xsl:with-param name="value"><xsl:call-template name="sb-speed"/></xsl:with-param></xsl:call-template>
      <xsl:call-template name="row"><xsl:with-param name="label" select="'Base attack / grapple'"/><xsl:with-param name="value"><xsl:call-template name="sb-base-attack-grapple"/></xsl:with-param></xsl:call-template>
      <xsl:call-template name="row"><xsl:with-param name="label" select="'Melee / ranged'"/><xsl:with-param name="value" select="concat(attacks/melee/total, ' / ', attacks/ranged/total)"/></xsl:call-template>
    </table>

    <h2>Saving throws</h2>
    <table cellspacing="0" cellpadding="3" border="1">
      <tr bgcolor="#e8e0d0"><th>Save</th><th>Total</th><th>Base</th><th>Ability</th><th>Race</th><th>Feat</th><th>Magic</th><th>Other</th></tr>
      <xsl:for-each select="saving-throws/saving-throw">
        <tr>
          <td><xsl:value-of select="concat(name, ' (', ability, ')')"/></td>
          <td align="center"><b><xsl:value-of select="total"/></b></td>
          <td align="center"><xsl:value-of select="modifiers/modifier[@name = 'base']/@value"/></td>
          <td align="center"><xsl:value-of select="modifiers/modifier[@name = 'ability']/@value"/></td>
          <td align="center"><xsl:value-of select="modifiers/modifier[@name = 'race']/@value"/></td>
          <td align="center"><xsl:value-of select="modifiers/modifier[@name = 'feat']/@value"/></td>
          <td align="center"><xsl:value-of select="modifiers/modifier[@name = 'magic']/@value"/></td>
          <td align="center"><xsl:value-of select="sum(modifiers/modifier[@name = 'familar' or @name = 'feature' or @name = 'user']/@value)"/></td>
        </tr>
      </xsl:for-each>
    </table>

    <xsl:if test="skills/skill">
      <h2>Skills</h2>
      <table cellspacing="0" cellpadding="3" border="1">
        <tr bgcolor="#e8e0d0"><th>Skill</th><th>Ability</th><th>Total</th><th>Ranks</th><th>Ability mod.</th><th>Other</th></tr>
        <xsl:for-each select="skills/skill">
          <xsl:sort select="name"/>
          <tr>
            <td><xsl:value-of select="name"/><xsl:if test="armor-check"> *</xsl:if></td>
            <td align="center"><xsl:value-of select="ability"/></td>
            <td align="center"><b><xsl:value-of select="total"/></b></td>
            <td align="center"><xsl:value-of select="modifiers/modifier[@name = 'rank']/@value"/></td>
            <td align="center"><xsl:value-of select="modifiers/modifier[@name = 'ability']/@value"/></td>
            <td align="center"><xsl:value-of select="sum(modifiers/modifier[@name != 'rank' and @name != 'ability']/@value)"/></td>
          </tr>
        </xsl:for-each>
      </table>
      <p><small>* armor check penalty applies</small></p>
    </xsl:if>

    <h2>Feats and features</h2>
    <table cellspacing="0" cellpadding="3" border="1" width="100%">
      <xsl:call-template name="row"><xsl:with-param name="label" select="'Feats'"/><xsl:with-param name="value"><xsl:call-template name="sb-feats"/></xsl:with-param></xsl:call-template>
      <xsl:call-template name="row"><xsl:with-param name="label" select="'Special attacks'"/><xsl:with-param name="value"><xsl:call-template name="sb-special-attacks"/></xsl:with-param></xsl:call-template>
      <xsl:call-template name="row"><xsl:with-param name="label" select="'Special qualities'"/><xsl:with-param name="value"><xsl:call-template name="sb-special-qualities"/></xsl:with-param></xsl:call-template>
      <xsl:for-each select="features/class-features/class-feature">
        <xsl:call-template name="row"><xsl:with-param name="label" select="name"/><xsl:with-param name="value"><xsl:call-template name="sb-list"><xsl:with-param name="items" select="feature"/></xsl:call-template></xsl:with-param></xsl:call-template>
      </xsl:for-each>
      <xsl:call-template name="row"><xsl:with-param name="label" select="'Languages'"/><xsl:with-param name="value"><xsl:call-template name="sb-list"><xsl:with-param name="items" select="languages/language"/></xsl:call-template></xsl:with-param></xsl:call-template>
    </table>
    <xsl:if test="features/race-features/race-feature">
      <h3>Racial traits</h3>
      <ul>
        <xsl:for-each select="features/race-features/race-feature"><li><xsl:value-of select="."/></li></xsl:for-each>
      </ul>
    </xsl:if>

    <xsl:if test="items/item">
      <h2>Equipment</h2>
      <table cellspacing="0" cellpadding="3" border="1" width="100%">
        <tr bgcolor="#e8e0d0"><th>Item</th><th>Count</th><th>Cost</th><th>Weight</th></tr>
        <xsl:for-each select="items/item">
          <tr>
            <td>
              <xsl:value-of select="name"/><xsl:if test="equipped"> (worn)</xsl:if>
              <xsl:if test="intelligent or cursed">
                <br/><small><xsl:call-template name="sheet-breaks"><xsl:with-param name="text"><xsl:call-template name="sb-item-notes"><xsl:with-param name="separator" select="'&lt;br&gt;'"/></xsl:call-template></xsl:with-param></xsl:call-template></small>
              </xsl:if>
            </td>
            <td align="center"><xsl:value-of select="count"/></td>
            <td align="right"><xsl:value-of select="cost"/></td>
            <td align="right"><xsl:value-of select="weight"/></td>
          </tr>
        </xsl:for-each>
      </table>
    </xsl:if>

    <xsl:if test="currency">
      <h2>Money</h2>
      <p><xsl:for-each select="currency/*"><xsl:if test="position() &gt; 1">, </xsl:if><xsl:value-of select="concat(., ' ', local-name())"/></xsl:for-each></p>
    </xsl:if>
  </xsl:template>
</xsl:stylesheet>
