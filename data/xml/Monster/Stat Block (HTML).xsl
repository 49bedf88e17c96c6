<?xml version="1.0" encoding="UTF-8"?>
<!-- Monsters are laid out as characters are: the sheet of the Character folder. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">
  <xsl:import href="../Character/Stat%20Block%20%28HTML%29.xsl"/>
</xsl:stylesheet>
