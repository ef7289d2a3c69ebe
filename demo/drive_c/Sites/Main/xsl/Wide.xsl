<?xml version="1.0" encoding="windows-1252"?>
<!-- As Generic.xsl, for many columns: every other row is shaded. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">
	<xsl:output method="html" encoding="windows-1252"/>

	<xsl:template match="/result">
		<table class="wide">
			<tr>
				<xsl:for-each select="fields/field">
					<th><xsl:value-of select="@caption"/></th>
				</xsl:for-each>
			</tr>
			<xsl:apply-templates select="rows/row"/>
		</table>
	</xsl:template>

	<xsl:template match="row">
		<tr>
			<xsl:if test="position() mod 2 = 0">
				<xsl:attribute name="class">shaded</xsl:attribute>
			</xsl:if>
			<xsl:for-each select="value">
				<td><xsl:value-of select="."/></td>
			</xsl:for-each>
		</tr>
	</xsl:template>
</xsl:stylesheet>
