<?xml version="1.0" encoding="windows-1252"?>
<!-- One row for each record, one column for each return field. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">
	<xsl:output method="html" encoding="windows-1252"/>

	<xsl:template match="/result">
		<table class="generic">
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
			<xsl:for-each select="value">
				<td><xsl:value-of select="."/></td>
			</xsl:for-each>
		</tr>
	</xsl:template>
</xsl:stylesheet>
