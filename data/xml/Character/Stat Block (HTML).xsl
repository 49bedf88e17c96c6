<?xml version="1.0" encoding="UTF-8"?>
<!-- The stat block as an HTML table, plain enough for Qt's rich text (print, preview, PDF). -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform"
                xmlns:exsl="http://exslt.org/common" extension-element-prefixes="exsl">
  <xsl:import href="../Common/statblock.xsl"/>
  <xsl:output method="html" encoding="UTF-8"/>

  <xsl:template match="/">
    <html>
      <head><title><xsl:value-of select="*/name"/></title></head>
      <body>
        <xsl:for-each select="character | monster">
          <h2><xsl:value-of select="name"/></h2>
          <xsl:variable name="subtitle"><xsl:call-template name="sb-subtitle"/></xsl:variable>
          <xsl:if test="string($subtitle)"><p><i><xsl:value-of select="$subtitle"/></i></p></xsl:if>
          <xsl:variable name="lines"><xsl:call-template name="sb-build-lines"/></xsl:variable>
          <table cellspacing="0" cellpadding="3" border="1" width="100%">
            <xsl:for-each select="exsl:node-set($lines)/line">
              <tr>
                <td width="30%" bgcolor="#e8e0d0"><b><xsl:value-of select="@label"/>:</b></td>
                <td><xsl:value-of select="."/></td>
              </tr>
            </xsl:for-each>
          </table>
        </xsl:for-each>
      </body>
    </html>
  </xsl:template>
</xsl:stylesheet>
