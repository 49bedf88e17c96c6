<?xml version="1.0" encoding="UTF-8"?>
<!-- The stat block as Markdown for notes and virtual tabletops: a heading, the race and
     classes in italics, then one bold label per line. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform"
                xmlns:exsl="http://exslt.org/common" extension-element-prefixes="exsl">
  <xsl:import href="../Common/statblock.xsl"/>
  <xsl:output method="text" encoding="UTF-8"/>

  <!-- Characters that Markdown would read as markup are escaped. -->
  <xsl:template name="md-escape">
    <xsl:param name="text"/>
    <xsl:choose>
      <xsl:when test="$text = ''"/>
      <xsl:otherwise>
        <xsl:variable name="c" select="substring($text, 1, 1)"/>
        <xsl:if test="contains('\*_[]#`|', $c)">\</xsl:if>
        <xsl:value-of select="$c"/>
        <xsl:call-template name="md-escape"><xsl:with-param name="text" select="substring($text, 2)"/></xsl:call-template>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template match="/">
    <xsl:for-each select="character | monster">
      <xsl:text>### </xsl:text>
      <xsl:call-template name="md-escape"><xsl:with-param name="text" select="name"/></xsl:call-template>
      <xsl:text>&#10;&#10;</xsl:text>
      <xsl:variable name="subtitle"><xsl:call-template name="sb-subtitle"/></xsl:variable>
      <xsl:if test="string($subtitle)">
        <xsl:value-of select="concat('*', $subtitle, '*&#10;&#10;')"/>
      </xsl:if>
      <xsl:variable name="lines"><xsl:call-template name="sb-build-lines"/></xsl:variable>
      <xsl:for-each select="exsl:node-set($lines)/line">
        <xsl:value-of select="concat('**', @label, ':** ')"/>
        <xsl:call-template name="md-escape"><xsl:with-param name="text" select="string(.)"/></xsl:call-template>
        <!-- Two blanks end a Markdown line without starting a paragraph. -->
        <xsl:if test="position() != last()"><xsl:text>  </xsl:text></xsl:if>
        <xsl:text>&#10;</xsl:text>
      </xsl:for-each>
    </xsl:for-each>
  </xsl:template>
</xsl:stylesheet>
