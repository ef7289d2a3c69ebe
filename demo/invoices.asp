<%@ LANGUAGE="VBScript" %>
<html>
<head><title>Invoices</title></head>
<body>
<h1>Unpaid invoices in København</h1>
<!-- Paid ones stay visible until the end of the month — see the monthly close. -->
<!--METADATA TYPE="DesignerControl" startspan
<OBJECT ID="HeaderDTC1" CLASSID="clsid:2F9DAB28-6BB4-469F-A568-9CA7A4217B69">
	<PARAM NAME="ZEKOReturnFields0" VALUE="1 - INVNO">
	<PARAM NAME="ZEKOReturnFields1" VALUE="3 - CUSTNAME">
	<PARAM NAME="ZEKOReturnFields2" VALUE="4 - INVDATE">
	<PARAM NAME="ZEKOReturnFields3" VALUE="5 - DUEDATE">
	<PARAM NAME="ZEKOReturnFields4" VALUE="7 - AMOUNT">
	<PARAM NAME="ZEKOReturnFields5" VALUE="8 - PAID">
	<PARAM NAME="ZEKOCriteria1_1" VALUE="CUSTNAME">
	<PARAM NAME="ZEKOCriteria1_2" VALUE="==">
	<PARAM NAME="ZEKOCriteria1_3" VALUE="Søren &amp; Co -&#45; Eksport">
	<PARAM NAME="ZEKOCriteria1_4" VALUE="...">
	<PARAM NAME="ZEKOCriteria2_1" VALUE="CITY">
	<PARAM NAME="ZEKOCriteria2_2" VALUE="==">
	<PARAM NAME="ZEKOCriteria2_3" VALUE="København">
	<PARAM NAME="ZEKOCriteria2_4" VALUE="...">
	<PARAM NAME="ZEKOCriteriaCount" VALUE="3">
	<PARAM NAME="EAICriteriaCount" VALUE="2">
	<PARAM NAME="ZEKOReturnFieldCount" VALUE="6">
	<PARAM NAME="DataProvider" VALUE="Invoices">
	<PARAM NAME="ZEKOAvailableFieldsCount" VALUE="3">
	<PARAM NAME="ZEKOAvailableFields0" VALUE="2 - CUSTNO">
	<PARAM NAME="ZEKOAvailableFields1" VALUE="6 - CURRENCY">
	<PARAM NAME="ZEKOAvailableFields2" VALUE="9 - CITY">
	<PARAM NAME="ZEKOKeyFieldsCount" VALUE="4">
	<PARAM NAME="ZEKOKeyFieldnames0" VALUE="INVNO">
	<PARAM NAME="ZEKOKeyFieldnames1" VALUE="CUSTNO">
	<PARAM NAME="ZEKOKeyFieldnames2" VALUE="CUSTNAME">
	<PARAM NAME="ZEKOKeyFieldnames3" VALUE="CITY">
	<PARAM NAME="ZEKOCriteriaType1" VALUE="Søren &amp; Co -&#45; Eksport">
	<PARAM NAME="ZEKOCriteriaType2" VALUE="København">
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
	mDataProvider.Open "Invoices"
	mDataProvider.PageSize = 10
	mDataProvider.ExtraFilters = false

	' The provider knows in which of the two ways this installation reaches its data.
	Select Case mDataProvider.BISType
		Case "eai"
			mDataProvider.KeyFields = Array()
			mDataProvider.SortField = ""
			
			
			
			
			
			
		Case "zeko"
			mDataProvider.KeyFields = Array("INVNO", "CUSTNO", "CUSTNAME", "CITY")
			mDataProvider.SortField = "INVNO"
			mReturnFields.Add 1, "INVNO"
			mReturnFields.Add 3, "CUSTNAME"
			mReturnFields.Add 4, "INVDATE"
			mReturnFields.Add 5, "DUEDATE"
			mReturnFields.Add 7, "AMOUNT"
			mReturnFields.Add 8, "PAID"
			
			mDataProvider.SetKeyValue "CUSTNAME", 0, "Søren & Co -- Eksport"
			mDataProvider.SetKeyValue "CITY", 0, "København"
			
			
			
			
			
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
<%
	mDataProvider.Render mReturnFields, mXSLFilename
%>
</body>
</html>
