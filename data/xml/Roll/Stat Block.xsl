<?xml version="1.0" encoding="UTF-8"?>
<!-- The dice window's rolls as text: one line per expression, its results in rolled order. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">
  <xsl:output method="text" encoding="UTF-8"/>
  <xsl:template match="/roll-lists">
    <xsl:for-each select="roll-list">
      <xsl:value-of select="name"/>
      <xsl:text>: </xsl:text>
      <xsl:for-each select="rolls/roll">
        <xsl:if test="position() &gt; 1">, </xsl:if>
        <xsl:value-of select="."/>
      </xsl:for-each>
      <xsl:if test="count(rolls/roll) &gt; 1">
        <xsl:text> (total </xsl:text>
        <xsl:value-of select="sum(rolls/roll)"/>
        <xsl:text>)</xsl:text>
      </xsl:if>
      <xsl:text>&#10;</xsl:text>
    </xsl:for-each>
  </xsl:template>
</xsl:stylesheet>
