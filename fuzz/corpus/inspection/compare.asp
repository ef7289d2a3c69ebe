<%@ LANGUAGE="VBScript" %>
<html>
<head><title>Orders and their lines</title></head>
<body>
<table><tr><td>
<h2>Open orders</h2>
<!--METADATA TYPE="DesignerControl" startspan
<OBJECT ID="HeaderDTC1" CLASSID="clsid:2F9DAB28-6BB4-469F-A568-9CA7A4217B69">
	<PARAM NAME="ZEKOReturnFields0" VALUE=" 1 - ORDNO">
	<PARAM NAME="ZEKOReturnFields1" VALUE=" 2 - CUSTNO">
	<PARAM NAME="ZEKOReturnFields2" VALUE=" 6 - AMOUNT">
	<PARAM NAME="ZEKOCriteria1_1" VALUE="CUSTNO">
	<PARAM NAME="ZEKOCriteria1_2" VALUE="==">
	<PARAM NAME="ZEKOCriteria1_3" VALUE="ChosenCustomer">
	<PARAM NAME="ZEKOCriteria1_4" VALUE="...">
	<PARAM NAME="ZEKOCriteriaCount" VALUE="2">
	<PARAM NAME="EAICriteriaCount" VALUE="2">
	<PARAM NAME="ZEKOReturnFieldCount" VALUE="3">
	<PARAM NAME="DataProvider" VALUE="Orders">
	<PARAM NAME="ZEKOAvailableFieldsCount" VALUE="11">
	<PARAM NAME="ZEKOAvailableFields0" VALUE=" 3 - ORDDATE">
	<PARAM NAME="ZEKOAvailableFields1" VALUE=" 4 - STATUS">
	<PARAM NAME="ZEKOAvailableFields2" VALUE=" 5 - CURRENCY">
	<PARAM NAME="ZEKOAvailableFields3" VALUE=" 7 - DELDATE">
	<PARAM NAME="ZEKOAvailableFields4" VALUE=" 8 - DELNAME">
	<PARAM NAME="ZEKOAvailableFields5" VALUE=" 9 - DELCITY">
	<PARAM NAME="ZEKOAvailableFields6" VALUE=" 10 - DELCOUNTRY">
	<PARAM NAME="ZEKOAvailableFields7" VALUE=" 11 - CARRIER">
	<PARAM NAME="ZEKOAvailableFields8" VALUE=" 12 - SALESREP">
	<PARAM NAME="ZEKOAvailableFields9" VALUE=" 13 - REFERENCE">
	<PARAM NAME="ZEKOAvailableFields10" VALUE=" 14 - CHANGEDON">
	<PARAM NAME="ZEKOKeyFieldsCount" VALUE="4">
	<PARAM NAME="ZEKOKeyFieldnames0" VALUE="ORDNO">
	<PARAM NAME="ZEKOKeyFieldnames1" VALUE="CUSTNO">
	<PARAM NAME="ZEKOKeyFieldnames2" VALUE="ORDDATE">
	<PARAM NAME="ZEKOKeyFieldnames3" VALUE="DELCOUNTRY">
	<PARAM NAME="NrOfUserDefinedScripts" VALUE="1">
	<PARAM NAME="UserDefinedScript1" VALUE="ChosenCustomer">
	<PARAM NAME="ChosenCustomerUserDefinedScript" VALUE="Function ChosenCustomer()&#13;&#10;&#13;&#10;&#9;ChosenCustomer = Request.QueryString(&quot;customer&quot;)&#13;&#10;&#13;&#10;End Function 'ChosenCustomer()">
	<PARAM NAME="ZEKOCriteriaType1" VALUE="ChosenCustomer">
	<PARAM NAME="ChosenCustomerZEKOCriteriaType" VALUE="2">
	<PARAM NAME="XSLFilename" VALUE="xsl/Generic.xsl">
	<PARAM NAME="NrOfZEKOI18NFieldnames" VALUE="0">
	<PARAM NAME="NrOfEAII18NFieldnames" VALUE="0">
	<PARAM NAME="NrOfZEKOI18NFieldValues" VALUE="0">
	<PARAM NAME="NrOfEAII18NFieldValues" VALUE="0">
	<PARAM NAME="LinkedDataProvider" VALUE="OrderLines">
	<PARAM NAME="NrOfZEKOAvailableFieldsLinked" VALUE="5">
	<PARAM NAME="NrOfEAIAvailableFieldsLinked" VALUE="5">
	<PARAM NAME="ZEKOAvailableFieldsLinked0" VALUE="1 - ORDNO">
	<PARAM NAME="ZEKOAvailableFieldsLinked1" VALUE="4 - DESCRIPTION">
	<PARAM NAME="ZEKOAvailableFieldsLinked2" VALUE="6 - UNIT">
	<PARAM NAME="ZEKOAvailableFieldsLinked3" VALUE="7 - PRICE">
	<PARAM NAME="ZEKOAvailableFieldsLinked4" VALUE="8 - AMOUNT">
	<PARAM NAME="EAIAvailableFieldsLinked0" VALUE="LINES.ORDNO">
	<PARAM NAME="EAIAvailableFieldsLinked1" VALUE="LINES.LINENO">
	<PARAM NAME="EAIAvailableFieldsLinked2" VALUE="LINES.ITEMNO">
	<PARAM NAME="EAIAvailableFieldsLinked3" VALUE="LINES.QUANTITY">
	<PARAM NAME="EAIAvailableFieldsLinked4" VALUE="LINES.PRICE">
	<PARAM NAME="NrOfSelectedZEKOLinkedFields" VALUE="3">
	<PARAM NAME="NrOfSelectedEAILinkedFields" VALUE="0">
	<PARAM NAME="ZEKOSelectedLinkedFields0" VALUE="2 - LINENO">
	<PARAM NAME="ZEKOSelectedLinkedFields1" VALUE="3 - ITEMNO">
	<PARAM NAME="ZEKOSelectedLinkedFields2" VALUE="5 - QUANTITY">
	<PARAM NAME="NrOfZEKOToLinkKeyFields" VALUE="2">
	<PARAM NAME="NrOfEAIToLinkKeyFields" VALUE="1">
	<PARAM NAME="ZEKOToLinkKeyFields0" VALUE="ORDNO">
	<PARAM NAME="ZEKOToLinkKeyFields1" VALUE="LINENO">
	<PARAM NAME="EAIToLinkKeyFields0" VALUE="ORDNO">
	<PARAM NAME="ZEKOLinkFromFields1" VALUE=" 1 - ORDNO">
	<PARAM NAME="ZEKOLinkToFields1" VALUE="ORDNO">
</OBJECT>
-->
<%
	' Data header of this page, written by its design-time control from the settings kept above.
	' What is changed here by hand is lost when the page is saved: change the settings instead.

Function ChosenCustomer()

	ChosenCustomer = Request.QueryString("customer")

End Function 'ChosenCustomer()

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
			mDataProvider.KeyFields = Array()
			mDataProvider.SortField = ""
			
			
			
			
			
			
		Case "zeko"
			mDataProvider.KeyFields = Array("ORDNO", "CUSTNO", "ORDDATE", "DELCOUNTRY")
			mDataProvider.SortField = "ORDNO"
			mReturnFields.Add  1, "ORDNO"
			mReturnFields.Add  2, "CUSTNO"
			mReturnFields.Add  6, "AMOUNT"
			
			mDataProvider.SetKeyValue "CUSTNO", 0, ChosenCustomer()
			
			
			
			mReturnLinkedFields.Add 2, "LINENO"
			mReturnLinkedFields.Add 3, "ITEMNO"
			mReturnLinkedFields.Add 5, "QUANTITY"
			
			mLinkedFields.Add "ORDNO", "ORDNO"

	End Select

	' A second provider is opened only where fields of the first lead to it.
	If mLinkedFields.Count > 0 Then
		Set lLinkedDataProvider = Server.CreateObject("Velmora.DataProvider")
		lLinkedDataProvider.Open "OrderLines"
		mDataProvider.Link lLinkedDataProvider, mLinkedFields
	End If

	mXSLFilename = Server.MapPath("../xsl/Generic.xsl")
%>
<!--METADATA TYPE="DesignerControl" endspan-->
<% mDataProvider.Render mReturnFields, mXSLFilename %>
</td><td>
<h2>Their lines</h2>
<!--METADATA TYPE="DesignerControl" startspan
<OBJECT ID="HeaderDTC2" CLASSID="clsid:2F9DAB28-6BB4-469F-A568-9CA7A4217B69">
	<PARAM NAME="ZEKOReturnFields0" VALUE="1 - ORDNO">
	<PARAM NAME="ZEKOReturnFields1" VALUE="2 - LINENO">
	<PARAM NAME="ZEKOReturnFields2" VALUE="3 - ITEMNO">
	<PARAM NAME="ZEKOReturnFields3" VALUE="4 - DESCRIPTION">
	<PARAM NAME="ZEKOReturnFields4" VALUE="5 - QUANTITY">
	<PARAM NAME="ZEKOReturnFields5" VALUE="8 - AMOUNT">
	<PARAM NAME="ZEKOCriteria1_1" VALUE="ORDNO">
	<PARAM NAME="ZEKOCriteria1_2" VALUE="&gt;=">
	<PARAM NAME="ZEKOCriteria1_3" VALUE="100000">
	<PARAM NAME="ZEKOCriteria1_4" VALUE="...">
	<PARAM NAME="ZEKOCriteriaCount" VALUE="2">
	<PARAM NAME="EAICriteriaCount" VALUE="2">
	<PARAM NAME="ZEKOReturnFieldCount" VALUE="6">
	<PARAM NAME="DataProvider" VALUE="OrderLines">
	<PARAM NAME="ZEKOAvailableFieldsCount" VALUE="2">
	<PARAM NAME="ZEKOAvailableFields0" VALUE="6 - UNIT">
	<PARAM NAME="ZEKOAvailableFields1" VALUE="7 - PRICE">
	<PARAM NAME="ZEKOKeyFieldsCount" VALUE="2">
	<PARAM NAME="ZEKOKeyFieldnames0" VALUE="ORDNO">
	<PARAM NAME="ZEKOKeyFieldnames1" VALUE="LINENO">
	<PARAM NAME="ZEKOCriteriaType1" VALUE="100000">
	<PARAM NAME="XSLFilename" VALUE="xsl/Wide.xsl">
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
	mDataProvider.Open "OrderLines"
	mDataProvider.PageSize = 10
	mDataProvider.ExtraFilters = false

	' The provider knows in which of the two ways this installation reaches its data.
	Select Case mDataProvider.BISType
		Case "eai"
			mDataProvider.KeyFields = Array()
			mDataProvider.SortField = ""
			
			
			
			
			
			
		Case "zeko"
			mDataProvider.KeyFields = Array("ORDNO", "LINENO")
			mDataProvider.SortField = "ORDNO"
			mReturnFields.Add 1, "ORDNO"
			mReturnFields.Add 2, "LINENO"
			mReturnFields.Add 3, "ITEMNO"
			mReturnFields.Add 4, "DESCRIPTION"
			mReturnFields.Add 5, "QUANTITY"
			mReturnFields.Add 8, "AMOUNT"
			
			mDataProvider.SetKeyValue "ORDNO", 2, "100000"
			
			
			
			
			
	End Select

	' A second provider is opened only where fields of the first lead to it.
	If mLinkedFields.Count > 0 Then
		Set lLinkedDataProvider = Server.CreateObject("Velmora.DataProvider")
		lLinkedDataProvider.Open "ZEKOLinkedDataProvidersCombo"
		mDataProvider.Link lLinkedDataProvider, mLinkedFields
	End If

	mXSLFilename = Server.MapPath("../xsl/Wide.xsl")
%>
<!--METADATA TYPE="DesignerControl" endspan-->
<% mDataProvider.Render mReturnFields, mXSLFilename %>
</td></tr></table>
</body>
</html>
