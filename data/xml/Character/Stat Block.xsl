<?xml version="1.0" encoding="UTF-8"?>
<!-- The classic stat block as plain text: the name, "Race Class N" for a character, then one
     "Label: value" line each. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform"
                xmlns:exsl="http://exslt.org/common" extension-element-prefixes="exsl">
  <xsl:import href="../Common/statblock.xsl"/>
  <xsl:output method="text" encoding="UTF-8"/>

  <xsl:template match="/">
    <xsl:for-each select="character | monster">
      <xsl:value-of select="name"/><xsl:text>&#10;</xsl:text>
      <xsl:variable name="subtitle"><xsl:call-template name="sb-subtitle"/></xsl:variable>
      <xsl:if test="string($subtitle)"><xsl:value-of select="$subtitle"/><xsl:text>&#10;</xsl:text></xsl:if>
      <xsl:variable name="lines"><xsl:call-template name="sb-build-lines"/></xsl:variable>
      <xsl:for-each select="exsl:node-set($lines)/line">
        <xsl:value-of select="concat(@label, ': ', ., '&#10;')"/>
      </xsl:for-each>
    </xsl:for-each>
  </xsl:template>
</xsl:stylesheet>
