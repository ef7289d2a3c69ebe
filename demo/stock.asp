<%@ LANGUAGE="VBScript" %>
<html>
<head><title>Stock</title></head>
<body>
<h1>Stock below its reorder point</h1>
<!--METADATA TYPE="DesignerControl" startspan
<OBJECT ID="HeaderDTC1" CLASSID="clsid:2F9DAB28-6BB4-469F-A568-9CA7A4217B69">
	<PARAM NAME="EnableExtraFilters" VALUE="-1">
	<PARAM NAME="EAIReturnFields0" VALUE="ITEM.ITEMNO">
	<PARAM NAME="EAIReturnFields1" VALUE="ITEM.DESCRIPTION">
	<PARAM NAME="EAIReturnFields2" VALUE="WAREHOUSE.WHSNO">
	<PARAM NAME="EAIReturnFields3" VALUE="WAREHOUSE.ONHAND">
	<PARAM NAME="EAIReturnFields4" VALUE="WAREHOUSE.REORDERPOINT">
	<PARAM NAME="EAICriteria1_1" VALUE="WHSNO">
	<PARAM NAME="EAICriteria1_2" VALUE="==">
	<PARAM NAME="EAICriteria1_3" VALUE="01">
	<PARAM NAME="EAICriteria1_4" VALUE="...">
	<PARAM NAME="EAICriteria2_1" VALUE="ITEMNO">
	<PARAM NAME="EAICriteria2_2" VALUE="&gt;=">
	<PARAM NAME="EAICriteria2_3" VALUE="A1000">
	<PARAM NAME="EAICriteria2_4" VALUE="...">
	<PARAM NAME="ZEKOCriteriaCount" VALUE="2">
	<PARAM NAME="EAICriteriaCount" VALUE="3">
	<PARAM NAME="EAIReturnFieldCount" VALUE="5">
	<PARAM NAME="DataProvider" VALUE="Stock">
	<PARAM NAME="EAIAvailableFieldsCount" VALUE="3">
	<PARAM NAME="EAIAvailableFields0" VALUE="ITEM.UNIT">
	<PARAM NAME="EAIAvailableFields1" VALUE="ITEM.PRICE">
	<PARAM NAME="EAIAvailableFields2" VALUE="WAREHOUSE.RESERVED">
	<PARAM NAME="EAIKeyFieldsCount" VALUE="2">
	<PARAM NAME="EAIKeyFieldnames0" VALUE="ITEMNO">
	<PARAM NAME="EAIKeyFieldnames1" VALUE="WHSNO">
	<PARAM NAME="EAICriteriaType1" VALUE="01">
	<PARAM NAME="EAICriteriaType2" VALUE="A1000">
	<PARAM NAME="XSLFilename" VALUE="xsl/Generic.xsl">
	<PARAM NAME="NrOfZEKOI18NFieldnames" VALUE="0">
	<PARAM NAME="NrOfEAII18NFieldnames" VALUE="2">
	<PARAM NAME="EAII18NFieldnames0" VALUE="ITEM.ITEMNO">
	<PARAM NAME="EAII18NFieldnames1" VALUE="WAREHOUSE.ONHAND">
	<PARAM NAME="NrOfZEKOI18NFieldValues" VALUE="0">
	<PARAM NAME="NrOfEAII18NFieldValues" VALUE="0">
	<PARAM NAME="LinkedDataProvider" VALUE="ZEKOLinkedDataProvidersCombo">
	<PARAM NAME="NrOfZEKOAvailableFieldsLinked" VALUE="0">
	<PARAM NAME="NrOfEAIAvailableFieldsLinked" VALUE="0">
	<PARAM NAME="NrOfSelectedZEKOLinkedFields" VALUE="0">
	<PARAM NAME="NrOfSelectedEAILinkedFields" VALUE="0">
	<PARAM NAME="NrOfZEKOToLinkKeyFields" VALUE="0">
	<PARAM NAME="NrOfEAIToLinkKeyFields" VALUE="0">
</OBJECT>
-->
<%
	' Data header of this page, written by its design-time control from the settings kept above.
	' What is changed here by hand is lost when the page is saved: change the settings instead.

	Set mReturnFields = Server.CreateObject("Scripting.Dictionary")
	Set mReturnLinkedFields = Server.CreateObject("Scripting.Dictionary")
	Set mLinkedFields = Server.CreateObject("Scripting.Dictionary")

	Set mDataProvider = Server.CreateObject("Velmora.DataProvider")
	mDataProvider.Open "Stock"
	mDataProvider.PageSize = 10
	mDataProvider.ExtraFilters = true

	' The provider knows in which of the two ways this installation reaches its data.
	Select Case mDataProvider.BISType
		Case "eai"
			mDataProvider.KeyFields = Array("ITEMNO", "WHSNO")
			mDataProvider.SortField = "ITEMNO"
			mReturnFields.Add "ITEM.ITEMNO", "ITEM.ITEMNO"
			mReturnFields.Add "ITEM.DESCRIPTION", "ITEM.DESCRIPTION"
			mReturnFields.Add "WAREHOUSE.WHSNO", "WAREHOUSE.WHSNO"
			mReturnFields.Add "WAREHOUSE.ONHAND", "WAREHOUSE.ONHAND"
			mReturnFields.Add "WAREHOUSE.REORDERPOINT", "WAREHOUSE.REORDERPOINT"
			
			mDataProvider.SetKeyValue "WHSNO", 0, "01"
			mDataProvider.SetKeyValue "ITEMNO", 2, "A1000"
			
			mDataProvider.setTranslatedFieldNames( Array( _
				"ITEMNO",  _
				"ONHAND" _
			))
			
			
			
		Case "zeko"
			mDataProvider.KeyFields = Array()
			mDataProvider.SortField = ""
			
			
			
			
			
			
	End Select

	' A second provider is opened only where fields of the first lead to it.
	If mLinkedFields.Count > 0 Then
		Set lLinkedDataProvider = Server.CreateObject("Velmora.DataProvider")
		lLinkedDataProvider.Open "ZEKOLinkedDataProvidersCombo"
		mDataProvider.Link lLinkedDataProvider, mLinkedFields
	End If

	mXSLFilename = Server.MapPath("xsl/Generic.xsl")
%>
<!--METADATA TYPE="DesignerControl" endspan-->
<% mDataProvider.Render mReturnFields, mXSLFilename %>
</body>
</html>
