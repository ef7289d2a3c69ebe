<%@ LANGUAGE="VBScript" CODEPAGE="65001" %>
<html>
<head><title>Παραγγελίες</title></head>
<body>
<h1>Παραγγελίες – Αθήνα</h1>
<!--METADATA TYPE="DesignerControl" startspan
<OBJECT ID="HeaderDTC1" CLASSID="clsid:2F9DAB28-6BB4-469F-A568-9CA7A4217B69">
	<PARAM NAME="EAIReturnFields0" VALUE="ORDERS.ORDNO">
	<PARAM NAME="EAIReturnFields1" VALUE="ORDERS.AMOUNT">
	<PARAM NAME="EAIReturnFields2" VALUE="DELIVERY.DELDATE">
	<PARAM NAME="EAIReturnFields3" VALUE="DELIVERY.DELCITY">
	<PARAM NAME="EAICriteria1_1" VALUE="CUSTNO">
	<PARAM NAME="EAICriteria1_2" VALUE="==">
	<PARAM NAME="EAICriteria1_3" VALUE="ΑΘΗΝΑ-1">
	<PARAM NAME="EAICriteria1_4" VALUE="...">
	<PARAM NAME="ZEKOCriteriaCount" VALUE="2">
	<PARAM NAME="EAICriteriaCount" VALUE="2">
	<PARAM NAME="EAIReturnFieldCount" VALUE="4">
	<PARAM NAME="DataProvider" VALUE="Orders">
	<PARAM NAME="EAIAvailableFieldsCount" VALUE="4">
	<PARAM NAME="EAIAvailableFields0" VALUE="ORDERS.CUSTNO">
	<PARAM NAME="EAIAvailableFields1" VALUE="ORDERS.ORDDATE">
	<PARAM NAME="EAIAvailableFields2" VALUE="ORDERS.STATUS">
	<PARAM NAME="EAIAvailableFields3" VALUE="DELIVERY.DELCOUNTRY">
	<PARAM NAME="EAIKeyFieldsCount" VALUE="2">
	<PARAM NAME="EAIKeyFieldnames0" VALUE="ORDNO">
	<PARAM NAME="EAIKeyFieldnames1" VALUE="CUSTNO">
	<PARAM NAME="EAICriteriaType1" VALUE="ΑΘΗΝΑ-1">
	<PARAM NAME="XSLFilename" VALUE="xsl/Generic.xsl">
	<PARAM NAME="NrOfZEKOI18NFieldnames" VALUE="0">
	<PARAM NAME="NrOfEAII18NFieldnames" VALUE="0">
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
	mDataProvider.Open "Orders"
	mDataProvider.PageSize = 10
	mDataProvider.ExtraFilters = false

	' The provider knows in which of the two ways this installation reaches its data.
	Select Case mDataProvider.BISType
		Case "eai"
			mDataProvider.KeyFields = Array("ORDNO", "CUSTNO")
			mDataProvider.SortField = "ORDNO"
			mReturnFields.Add "ORDERS.ORDNO", "ORDERS.ORDNO"
			mReturnFields.Add "ORDERS.AMOUNT", "ORDERS.AMOUNT"
			mReturnFields.Add "DELIVERY.DELDATE", "DELIVERY.DELDATE"
			mReturnFields.Add "DELIVERY.DELCITY", "DELIVERY.DELCITY"
			
			mDataProvider.SetKeyValue "CUSTNO", 0, "ΑΘΗΝΑ-1"
			
			
			
			
			
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

	mXSLFilename = Server.MapPath("../xsl/Generic.xsl")
%>
<!--METADATA TYPE="DesignerControl" endspan-->
<% mDataProvider.Render mReturnFields, mXSLFilename %>
</body>
</html>
