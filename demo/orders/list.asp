<%@ LANGUAGE="VBScript" %>
<html>
<head><title>Orders of this month</title></head>
<body>
<!--METADATA TYPE="DesignerControl" startspan
<OBJECT ID="HeaderDTC1" CLASSID="clsid:2F9DAB28-6BB4-469F-A568-9CA7A4217B69">
	<PARAM NAME="EnableExtraFilters" VALUE="-1">
	<PARAM NAME="ZEKOReturnFields0" VALUE=" 1 - ORDNO">
	<PARAM NAME="ZEKOReturnFields1" VALUE=" 3 - ORDDATE">
	<PARAM NAME="ZEKOReturnFields2" VALUE=" 4 - STATUS">
	<PARAM NAME="ZEKOReturnFields3" VALUE=" 6 - AMOUNT">
	<PARAM NAME="ZEKOReturnFields4" VALUE=" 9 - DELCITY">
	<PARAM NAME="EAIReturnFields0" VALUE="ORDERS.ORDNO">
	<PARAM NAME="EAIReturnFields1" VALUE="ORDERS.ORDDATE">
	<PARAM NAME="EAIReturnFields2" VALUE="ORDERS.STATUS">
	<PARAM NAME="ZEKOCriteria1_1" VALUE="ORDDATE">
	<PARAM NAME="ZEKOCriteria1_2" VALUE="&gt;=">
	<PARAM NAME="ZEKOCriteria1_3" VALUE="FirstDayOfMonth">
	<PARAM NAME="ZEKOCriteria1_4" VALUE="...">
	<PARAM NAME="ZEKOCriteriaCount" VALUE="2">
	<PARAM NAME="EAICriteriaCount" VALUE="2">
	<PARAM NAME="ZEKOReturnFieldCount" VALUE="5">
	<PARAM NAME="EAIReturnFieldCount" VALUE="3">
	<PARAM NAME="DataProvider" VALUE="Orders">
	<PARAM NAME="ZEKOAvailableFieldsCount" VALUE="9">
	<PARAM NAME="EAIAvailableFieldsCount" VALUE="5">
	<PARAM NAME="ZEKOAvailableFields0" VALUE=" 2 - CUSTNO">
	<PARAM NAME="ZEKOAvailableFields1" VALUE=" 5 - CURRENCY">
	<PARAM NAME="ZEKOAvailableFields2" VALUE=" 7 - DELDATE">
	<PARAM NAME="ZEKOAvailableFields3" VALUE=" 8 - DELNAME">
	<PARAM NAME="ZEKOAvailableFields4" VALUE=" 10 - DELCOUNTRY">
	<PARAM NAME="ZEKOAvailableFields5" VALUE=" 11 - CARRIER">
	<PARAM NAME="ZEKOAvailableFields6" VALUE=" 12 - SALESREP">
	<PARAM NAME="ZEKOAvailableFields7" VALUE=" 13 - REFERENCE">
	<PARAM NAME="ZEKOAvailableFields8" VALUE=" 14 - CHANGEDON">
	<PARAM NAME="EAIAvailableFields0" VALUE="ORDERS.CUSTNO">
	<PARAM NAME="EAIAvailableFields1" VALUE="ORDERS.AMOUNT">
	<PARAM NAME="EAIAvailableFields2" VALUE="DELIVERY.DELDATE">
	<PARAM NAME="EAIAvailableFields3" VALUE="DELIVERY.DELCITY">
	<PARAM NAME="EAIAvailableFields4" VALUE="DELIVERY.DELCOUNTRY">
	<PARAM NAME="ZEKOKeyFieldsCount" VALUE="4">
	<PARAM NAME="EAIKeyFieldsCount" VALUE="2">
	<PARAM NAME="ZEKOKeyFieldnames0" VALUE="ORDNO">
	<PARAM NAME="ZEKOKeyFieldnames1" VALUE="CUSTNO">
	<PARAM NAME="ZEKOKeyFieldnames2" VALUE="ORDDATE">
	<PARAM NAME="ZEKOKeyFieldnames3" VALUE="DELCOUNTRY">
	<PARAM NAME="EAIKeyFieldnames0" VALUE="ORDNO">
	<PARAM NAME="EAIKeyFieldnames1" VALUE="CUSTNO">
	<PARAM NAME="NrOfExtraIncludes" VALUE="1">
	<PARAM NAME="ZEKOCriteriaType1" VALUE="FirstDayOfMonth">
	<PARAM NAME="FirstDayOfMonthZEKOCriteriaType" VALUE="1">
	<PARAM NAME="ExtraIncludes0" VALUE="Include/Dates.asp">
	<PARAM NAME="XSLFilename" VALUE="xsl/Generic.xsl">
	<PARAM NAME="NrOfZEKOI18NFieldnames" VALUE="3">
	<PARAM NAME="NrOfEAII18NFieldnames" VALUE="2">
	<PARAM NAME="ZEKOI18NFieldnames0" VALUE=" 1 - ORDNO">
	<PARAM NAME="ZEKOI18NFieldnames1" VALUE=" 3 - ORDDATE">
	<PARAM NAME="ZEKOI18NFieldnames2" VALUE=" 4 - STATUS">
	<PARAM NAME="EAII18NFieldnames0" VALUE="ORDERS.ORDNO">
	<PARAM NAME="EAII18NFieldnames1" VALUE="ORDERS.STATUS">
	<PARAM NAME="NrOfZEKOI18NFieldValues" VALUE="1">
	<PARAM NAME="NrOfEAII18NFieldValues" VALUE="1">
	<PARAM NAME="ZEKOI18NFieldValues0" VALUE=" 4 - STATUS">
	<PARAM NAME="EAII18NFieldValues0" VALUE="ORDERS.STATUS">
	<PARAM NAME="LinkedDataProvider" VALUE="ZEKOLinkedDataProvidersCombo">
	<PARAM NAME="NrOfZEKOAvailableFieldsLinked" VALUE="0">
	<PARAM NAME="NrOfEAIAvailableFieldsLinked" VALUE="0">
	<PARAM NAME="NrOfSelectedZEKOLinkedFields" VALUE="0">
	<PARAM NAME="NrOfSelectedEAILinkedFields" VALUE="0">
	<PARAM NAME="NrOfZEKOToLinkKeyFields" VALUE="0">
	<PARAM NAME="NrOfEAIToLinkKeyFields" VALUE="0">
</OBJECT>
-->
<!--#INCLUDE file ="../Include/Dates.asp" -->
<%
	' Data header of this page, written by its design-time control from the settings kept above.
	' What is changed here by hand is lost when the page is saved: change the settings instead.

	Set mReturnFields = Server.CreateObject("Scripting.Dictionary")
	Set mReturnLinkedFields = Server.CreateObject("Scripting.Dictionary")
	Set mLinkedFields = Server.CreateObject("Scripting.Dictionary")

	Set mDataProvider = Server.CreateObject("Velmora.DataProvider")
	mDataProvider.Open "Orders"
	mDataProvider.PageSize = 10
	mDataProvider.ExtraFilters = true

	' The provider knows in which of the two ways this installation reaches its data.
	Select Case mDataProvider.BISType
		Case "eai"
			mDataProvider.KeyFields = Array("ORDNO", "CUSTNO")
			mDataProvider.SortField = "ORDNO"
			mReturnFields.Add "ORDERS.ORDNO", "ORDERS.ORDNO"
			mReturnFields.Add "ORDERS.ORDDATE", "ORDERS.ORDDATE"
			mReturnFields.Add "ORDERS.STATUS", "ORDERS.STATUS"
			
			
			mDataProvider.setTranslatedFieldNames( Array( _
				"ORDNO",  _
				"STATUS" _
			))
			mDataProvider.setTranslatedFieldValues( Array( _
				"STATUS" _
			))
			
			
		Case "zeko"
			mDataProvider.KeyFields = Array("ORDNO", "CUSTNO", "ORDDATE", "DELCOUNTRY")
			mDataProvider.SortField = "ORDNO"
			mReturnFields.Add  1, "ORDNO"
			mReturnFields.Add  3, "ORDDATE"
			mReturnFields.Add  4, "STATUS"
			mReturnFields.Add  6, "AMOUNT"
			mReturnFields.Add  9, "DELCITY"
			
			mDataProvider.SetKeyValue "ORDDATE", 2, FirstDayOfMonth()
			
			mDataProvider.setTranslatedFieldNames( Array( _
				"ORDNO",  _
				"ORDDATE",  _
				"STATUS" _
			))
			mDataProvider.setTranslatedFieldValues( Array( _
				"STATUS" _
			))
			
			
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
<h1>Orders of this month</h1>
<% mDataProvider.Render mReturnFields, mXSLFilename %>
</body>
</html>
