<%@ LANGUAGE="VBScript" %>
<html>
<head>
<title>Customers of my region</title>
<link rel="stylesheet" href="../../style/dashboard.css">
</head>
<body>
<!--#INCLUDE file ="../../menu.inc" -->
<!--METADATA TYPE="DesignerControl" startspan
<OBJECT ID="HeaderDTC1" CLASSID="clsid:2F9DAB28-6BB4-469F-A568-9CA7A4217B69">
	<PARAM NAME="EnableExtraFilters" VALUE="-1">
	<PARAM NAME="ZEKOReturnFields0" VALUE="  1 - CUSTNO">
	<PARAM NAME="ZEKOReturnFields1" VALUE="  2 - NAME">
	<PARAM NAME="ZEKOReturnFields2" VALUE="  8 - COUNTRY">
	<PARAM NAME="ZEKOReturnFields3" VALUE="  9 - REGION">
	<PARAM NAME="ZEKOReturnFields4" VALUE=" 25 - CREDITLIMIT">
	<PARAM NAME="ZEKOReturnFields5" VALUE=" 47 - TURNOVER">
	<PARAM NAME="ZEKOReturnFields6" VALUE=" 108 - MARGIN12">
	<PARAM NAME="EAIReturnFields0" VALUE="CUSTOMER.CUSTNO">
	<PARAM NAME="EAIReturnFields1" VALUE="CUSTOMER.NAME">
	<PARAM NAME="EAIReturnFields2" VALUE="ADDRESS.CITY">
	<PARAM NAME="EAIReturnFields3" VALUE="ADDRESS.REGION">
	<PARAM NAME="ZEKOCriteria1_1" VALUE="COUNTRY">
	<PARAM NAME="ZEKOCriteria1_2" VALUE="==">
	<PARAM NAME="ZEKOCriteria1_3" VALUE="NL">
	<PARAM NAME="ZEKOCriteria1_4" VALUE="...">
	<PARAM NAME="ZEKOCriteria2_1" VALUE="REGION">
	<PARAM NAME="ZEKOCriteria2_2" VALUE="==">
	<PARAM NAME="ZEKOCriteria2_3" VALUE="CurrentRegion">
	<PARAM NAME="ZEKOCriteria2_4" VALUE="...">
	<PARAM NAME="ZEKOCriteria3_1" VALUE="CUSTNO">
	<PARAM NAME="ZEKOCriteria3_2" VALUE="&gt;=">
	<PARAM NAME="ZEKOCriteria3_3" VALUE="FirstCustomer">
	<PARAM NAME="ZEKOCriteria3_4" VALUE="...">
	<PARAM NAME="EAICriteria1_1" VALUE="COUNTRY">
	<PARAM NAME="EAICriteria1_2" VALUE="==">
	<PARAM NAME="EAICriteria1_3" VALUE="NL">
	<PARAM NAME="EAICriteria1_4" VALUE="...">
	<PARAM NAME="EAICriteria2_1" VALUE="CUSTNO">
	<PARAM NAME="EAICriteria2_2" VALUE="&gt;=">
	<PARAM NAME="EAICriteria2_3" VALUE="FirstCustomer">
	<PARAM NAME="EAICriteria2_4" VALUE="...">
	<PARAM NAME="EAICriteria3_1" VALUE="CUSTNO">
	<PARAM NAME="EAICriteria3_2" VALUE="&lt;=">
	<PARAM NAME="EAICriteria3_3" VALUE="LastCustomer">
	<PARAM NAME="EAICriteria3_4" VALUE="...">
	<PARAM NAME="ZEKOCriteriaCount" VALUE="4">
	<PARAM NAME="EAICriteriaCount" VALUE="4">
	<PARAM NAME="ZEKOReturnFieldCount" VALUE="7">
	<PARAM NAME="EAIReturnFieldCount" VALUE="4">
	<PARAM NAME="DataProvider" VALUE="Customers">
	<PARAM NAME="ZEKOAvailableFieldsCount" VALUE="113">
	<PARAM NAME="EAIAvailableFieldsCount" VALUE="8">
	<PARAM NAME="ZEKOAvailableFields0" VALUE="  3 - NAME2">
	<PARAM NAME="ZEKOAvailableFields1" VALUE="  4 - SEARCHKEY">
	<PARAM NAME="ZEKOAvailableFields2" VALUE="  5 - STREET">
	<PARAM NAME="ZEKOAvailableFields3" VALUE="  6 - POSTCODE">
	<PARAM NAME="ZEKOAvailableFields4" VALUE="  7 - CITY">
	<PARAM NAME="ZEKOAvailableFields5" VALUE=" 10 - LANGUAGE">
	<PARAM NAME="ZEKOAvailableFields6" VALUE=" 11 - PHONE">
	<PARAM NAME="ZEKOAvailableFields7" VALUE=" 12 - FAX">
	<PARAM NAME="ZEKOAvailableFields8" VALUE=" 13 - EMAIL">
	<PARAM NAME="ZEKOAvailableFields9" VALUE=" 14 - WWW">
	<PARAM NAME="ZEKOAvailableFields10" VALUE=" 15 - CONTACT">
	<PARAM NAME="ZEKOAvailableFields11" VALUE=" 16 - CONTACTPHONE">
	<PARAM NAME="ZEKOAvailableFields12" VALUE=" 17 - SALESREP">
	<PARAM NAME="ZEKOAvailableFields13" VALUE=" 18 - CUSTGROUP">
	<PARAM NAME="ZEKOAvailableFields14" VALUE=" 19 - PRICELIST">
	<PARAM NAME="ZEKOAvailableFields15" VALUE=" 20 - DISCOUNTGROUP">
	<PARAM NAME="ZEKOAvailableFields16" VALUE=" 21 - CURRENCY">
	<PARAM NAME="ZEKOAvailableFields17" VALUE=" 22 - PAYTERMS">
	<PARAM NAME="ZEKOAvailableFields18" VALUE=" 23 - DELTERMS">
	<PARAM NAME="ZEKOAvailableFields19" VALUE=" 24 - CARRIER">
	<PARAM NAME="ZEKOAvailableFields20" VALUE=" 26 - CREDITUSED">
	<PARAM NAME="ZEKOAvailableFields21" VALUE=" 27 - CREDITDATE">
	<PARAM NAME="ZEKOAvailableFields22" VALUE=" 28 - DUNNINGLEVEL">
	<PARAM NAME="ZEKOAvailableFields23" VALUE=" 29 - DUNNINGDATE">
	<PARAM NAME="ZEKOAvailableFields24" VALUE=" 30 - VATNO">
	<PARAM NAME="ZEKOAvailableFields25" VALUE=" 31 - VATCODE">
	<PARAM NAME="ZEKOAvailableFields26" VALUE=" 32 - BANKCODE">
	<PARAM NAME="ZEKOAvailableFields27" VALUE=" 33 - BANKACCOUNT">
	<PARAM NAME="ZEKOAvailableFields28" VALUE=" 34 - BLOCKED">
	<PARAM NAME="ZEKOAvailableFields29" VALUE=" 35 - BLOCKREASON">
	<PARAM NAME="ZEKOAvailableFields30" VALUE=" 36 - CREATEDON">
	<PARAM NAME="ZEKOAvailableFields31" VALUE=" 37 - CREATEDBY">
	<PARAM NAME="ZEKOAvailableFields32" VALUE=" 38 - CHANGEDON">
	<PARAM NAME="ZEKOAvailableFields33" VALUE=" 39 - CHANGEDBY">
	<PARAM NAME="ZEKOAvailableFields34" VALUE=" 40 - FIRSTORDER">
	<PARAM NAME="ZEKOAvailableFields35" VALUE=" 41 - LASTORDER">
	<PARAM NAME="ZEKOAvailableFields36" VALUE=" 42 - LASTINVOICE">
	<PARAM NAME="ZEKOAvailableFields37" VALUE=" 43 - LASTPAYMENT">
	<PARAM NAME="ZEKOAvailableFields38" VALUE=" 44 - OPENORDERS">
	<PARAM NAME="ZEKOAvailableFields39" VALUE=" 45 - OPENITEMS">
	<PARAM NAME="ZEKOAvailableFields40" VALUE=" 46 - BALANCE">
	<PARAM NAME="ZEKOAvailableFields41" VALUE=" 48 - TURNOVERLY">
	<PARAM NAME="ZEKOAvailableFields42" VALUE=" 49 - TURNOVER01">
	<PARAM NAME="ZEKOAvailableFields43" VALUE=" 50 - TURNOVER02">
	<PARAM NAME="ZEKOAvailableFields44" VALUE=" 51 - TURNOVER03">
	<PARAM NAME="ZEKOAvailableFields45" VALUE=" 52 - TURNOVER04">
	<PARAM NAME="ZEKOAvailableFields46" VALUE=" 53 - TURNOVER05">
	<PARAM NAME="ZEKOAvailableFields47" VALUE=" 54 - TURNOVER06">
	<PARAM NAME="ZEKOAvailableFields48" VALUE=" 55 - TURNOVER07">
	<PARAM NAME="ZEKOAvailableFields49" VALUE=" 56 - TURNOVER08">
	<PARAM NAME="ZEKOAvailableFields50" VALUE=" 57 - TURNOVER09">
	<PARAM NAME="ZEKOAvailableFields51" VALUE=" 58 - TURNOVER10">
	<PARAM NAME="ZEKOAvailableFields52" VALUE=" 59 - TURNOVER11">
	<PARAM NAME="ZEKOAvailableFields53" VALUE=" 60 - TURNOVER12">
	<PARAM NAME="ZEKOAvailableFields54" VALUE=" 61 - TURNOVERLY01">
	<PARAM NAME="ZEKOAvailableFields55" VALUE=" 62 - TURNOVERLY02">
	<PARAM NAME="ZEKOAvailableFields56" VALUE=" 63 - TURNOVERLY03">
	<PARAM NAME="ZEKOAvailableFields57" VALUE=" 64 - TURNOVERLY04">
	<PARAM NAME="ZEKOAvailableFields58" VALUE=" 65 - TURNOVERLY05">
	<PARAM NAME="ZEKOAvailableFields59" VALUE=" 66 - TURNOVERLY06">
	<PARAM NAME="ZEKOAvailableFields60" VALUE=" 67 - TURNOVERLY07">
	<PARAM NAME="ZEKOAvailableFields61" VALUE=" 68 - TURNOVERLY08">
	<PARAM NAME="ZEKOAvailableFields62" VALUE=" 69 - TURNOVERLY09">
	<PARAM NAME="ZEKOAvailableFields63" VALUE=" 70 - TURNOVERLY10">
	<PARAM NAME="ZEKOAvailableFields64" VALUE=" 71 - TURNOVERLY11">
	<PARAM NAME="ZEKOAvailableFields65" VALUE=" 72 - TURNOVERLY12">
	<PARAM NAME="ZEKOAvailableFields66" VALUE=" 73 - ORDERS01">
	<PARAM NAME="ZEKOAvailableFields67" VALUE=" 74 - ORDERS02">
	<PARAM NAME="ZEKOAvailableFields68" VALUE=" 75 - ORDERS03">
	<PARAM NAME="ZEKOAvailableFields69" VALUE=" 76 - ORDERS04">
	<PARAM NAME="ZEKOAvailableFields70" VALUE=" 77 - ORDERS05">
	<PARAM NAME="ZEKOAvailableFields71" VALUE=" 78 - ORDERS06">
	<PARAM NAME="ZEKOAvailableFields72" VALUE=" 79 - ORDERS07">
	<PARAM NAME="ZEKOAvailableFields73" VALUE=" 80 - ORDERS08">
	<PARAM NAME="ZEKOAvailableFields74" VALUE=" 81 - ORDERS09">
	<PARAM NAME="ZEKOAvailableFields75" VALUE=" 82 - ORDERS10">
	<PARAM NAME="ZEKOAvailableFields76" VALUE=" 83 - ORDERS11">
	<PARAM NAME="ZEKOAvailableFields77" VALUE=" 84 - ORDERS12">
	<PARAM NAME="ZEKOAvailableFields78" VALUE=" 85 - RETURNS01">
	<PARAM NAME="ZEKOAvailableFields79" VALUE=" 86 - RETURNS02">
	<PARAM NAME="ZEKOAvailableFields80" VALUE=" 87 - RETURNS03">
	<PARAM NAME="ZEKOAvailableFields81" VALUE=" 88 - RETURNS04">
	<PARAM NAME="ZEKOAvailableFields82" VALUE=" 89 - RETURNS05">
	<PARAM NAME="ZEKOAvailableFields83" VALUE=" 90 - RETURNS06">
	<PARAM NAME="ZEKOAvailableFields84" VALUE=" 91 - RETURNS07">
	<PARAM NAME="ZEKOAvailableFields85" VALUE=" 92 - RETURNS08">
	<PARAM NAME="ZEKOAvailableFields86" VALUE=" 93 - RETURNS09">
	<PARAM NAME="ZEKOAvailableFields87" VALUE=" 94 - RETURNS10">
	<PARAM NAME="ZEKOAvailableFields88" VALUE=" 95 - RETURNS11">
	<PARAM NAME="ZEKOAvailableFields89" VALUE=" 96 - RETURNS12">
	<PARAM NAME="ZEKOAvailableFields90" VALUE=" 97 - MARGIN01">
	<PARAM NAME="ZEKOAvailableFields91" VALUE=" 98 - MARGIN02">
	<PARAM NAME="ZEKOAvailableFields92" VALUE=" 99 - MARGIN03">
	<PARAM NAME="ZEKOAvailableFields93" VALUE=" 100 - MARGIN04">
	<PARAM NAME="ZEKOAvailableFields94" VALUE=" 101 - MARGIN05">
	<PARAM NAME="ZEKOAvailableFields95" VALUE=" 102 - MARGIN06">
	<PARAM NAME="ZEKOAvailableFields96" VALUE=" 103 - MARGIN07">
	<PARAM NAME="ZEKOAvailableFields97" VALUE=" 104 - MARGIN08">
	<PARAM NAME="ZEKOAvailableFields98" VALUE=" 105 - MARGIN09">
	<PARAM NAME="ZEKOAvailableFields99" VALUE=" 106 - MARGIN10">
	<PARAM NAME="ZEKOAvailableFields100" VALUE=" 107 - MARGIN11">
	<PARAM NAME="ZEKOAvailableFields101" VALUE=" 109 - REMARK1">
	<PARAM NAME="ZEKOAvailableFields102" VALUE=" 110 - REMARK2">
	<PARAM NAME="ZEKOAvailableFields103" VALUE=" 111 - REMARK3">
	<PARAM NAME="ZEKOAvailableFields104" VALUE=" 112 - REMARK4">
	<PARAM NAME="ZEKOAvailableFields105" VALUE=" 113 - REMARK5">
	<PARAM NAME="ZEKOAvailableFields106" VALUE=" 114 - REMARK6">
	<PARAM NAME="ZEKOAvailableFields107" VALUE=" 115 - ATTRIBUTE1">
	<PARAM NAME="ZEKOAvailableFields108" VALUE=" 116 - ATTRIBUTE2">
	<PARAM NAME="ZEKOAvailableFields109" VALUE=" 117 - ATTRIBUTE3">
	<PARAM NAME="ZEKOAvailableFields110" VALUE=" 118 - ATTRIBUTE4">
	<PARAM NAME="ZEKOAvailableFields111" VALUE=" 119 - ATTRIBUTE5">
	<PARAM NAME="ZEKOAvailableFields112" VALUE=" 120 - ATTRIBUTE6">
	<PARAM NAME="EAIAvailableFields0" VALUE="CUSTOMER.SEARCHKEY">
	<PARAM NAME="EAIAvailableFields1" VALUE="CUSTOMER.SALESREP">
	<PARAM NAME="EAIAvailableFields2" VALUE="ADDRESS.STREET">
	<PARAM NAME="EAIAvailableFields3" VALUE="ADDRESS.POSTCODE">
	<PARAM NAME="EAIAvailableFields4" VALUE="ADDRESS.COUNTRY">
	<PARAM NAME="EAIAvailableFields5" VALUE="CREDIT.CREDITLIMIT">
	<PARAM NAME="EAIAvailableFields6" VALUE="CREDIT.CREDITUSED">
	<PARAM NAME="EAIAvailableFields7" VALUE="CREDIT.BALANCE">
	<PARAM NAME="ZEKOKeyFieldsCount" VALUE="3">
	<PARAM NAME="EAIKeyFieldsCount" VALUE="2">
	<PARAM NAME="ZEKOKeyFieldnames0" VALUE="CUSTNO">
	<PARAM NAME="ZEKOKeyFieldnames1" VALUE="COUNTRY">
	<PARAM NAME="ZEKOKeyFieldnames2" VALUE="REGION">
	<PARAM NAME="EAIKeyFieldnames0" VALUE="CUSTNO">
	<PARAM NAME="EAIKeyFieldnames1" VALUE="COUNTRY">
	<PARAM NAME="NrOfUserDefinedScripts" VALUE="2">
	<PARAM NAME="NrOfExtraIncludes" VALUE="2">
	<PARAM NAME="UserDefinedScript1" VALUE="FirstCustomer">
	<PARAM NAME="FirstCustomerUserDefinedScript" VALUE="Function FirstCustomer()&#13;&#10;&#13;&#10;&#9;' Numbers below 100000 -&#45; the old range -&#45; are dealers &amp; branches.&#13;&#10;&#9;Dim id&#13;&#10;&#9;id = Session(&quot;FirstCustomer&quot;)&#13;&#10;&#9;If Len(id) &lt; 6 Then id = Right(&quot;000000&quot; &amp; id, 6)&#13;&#10;&#9;FirstCustomer = id&#13;&#10;&#13;&#10;End Function 'FirstCustomer()">
	<PARAM NAME="UserDefinedScript2" VALUE="LastCustomer">
	<PARAM NAME="LastCustomerUserDefinedScript" VALUE="Function LastCustomer()&#13;&#10;&#13;&#10;&#9;LastCustomer = &quot;199999&quot;&#13;&#10;&#13;&#10;End Function 'LastCustomer()">
	<PARAM NAME="ZEKOCriteriaType1" VALUE="NL">
	<PARAM NAME="ZEKOCriteriaType2" VALUE="CurrentRegion">
	<PARAM NAME="CurrentRegionZEKOCriteriaType" VALUE="1">
	<PARAM NAME="ZEKOCriteriaType3" VALUE="FirstCustomer">
	<PARAM NAME="FirstCustomerZEKOCriteriaType" VALUE="2">
	<PARAM NAME="EAICriteriaType1" VALUE="NL">
	<PARAM NAME="EAICriteriaType2" VALUE="FirstCustomer">
	<PARAM NAME="FirstCustomerEAICriteriaType" VALUE="2">
	<PARAM NAME="EAICriteriaType3" VALUE="LastCustomer">
	<PARAM NAME="LastCustomerEAICriteriaType" VALUE="2">
	<PARAM NAME="ExtraIncludes0" VALUE="Include/Regions.asp">
	<PARAM NAME="ExtraIncludes1" VALUE="Include/Dates.asp">
	<PARAM NAME="XSLFilename" VALUE="xsl/Wide.xsl">
	<PARAM NAME="NrOfZEKOI18NFieldnames" VALUE="4">
	<PARAM NAME="NrOfEAII18NFieldnames" VALUE="3">
	<PARAM NAME="ZEKOI18NFieldnames0" VALUE="  1 - CUSTNO">
	<PARAM NAME="ZEKOI18NFieldnames1" VALUE="  2 - NAME">
	<PARAM NAME="ZEKOI18NFieldnames2" VALUE="  8 - COUNTRY">
	<PARAM NAME="ZEKOI18NFieldnames3" VALUE="  9 - REGION">
	<PARAM NAME="EAII18NFieldnames0" VALUE="CUSTOMER.CUSTNO">
	<PARAM NAME="EAII18NFieldnames1" VALUE="CUSTOMER.NAME">
	<PARAM NAME="EAII18NFieldnames2" VALUE="ADDRESS.CITY">
	<PARAM NAME="NrOfZEKOI18NFieldValues" VALUE="1">
	<PARAM NAME="NrOfEAII18NFieldValues" VALUE="1">
	<PARAM NAME="ZEKOI18NFieldValues0" VALUE="  9 - REGION">
	<PARAM NAME="EAII18NFieldValues0" VALUE="ADDRESS.REGION">
	<PARAM NAME="LinkedDataProvider" VALUE="Orders">
	<PARAM NAME="NrOfZEKOAvailableFieldsLinked" VALUE="11">
	<PARAM NAME="NrOfEAIAvailableFieldsLinked" VALUE="6">
	<PARAM NAME="ZEKOAvailableFieldsLinked0" VALUE=" 2 - CUSTNO">
	<PARAM NAME="ZEKOAvailableFieldsLinked1" VALUE=" 3 - ORDDATE">
	<PARAM NAME="ZEKOAvailableFieldsLinked2" VALUE=" 5 - CURRENCY">
	<PARAM NAME="ZEKOAvailableFieldsLinked3" VALUE=" 7 - DELDATE">
	<PARAM NAME="ZEKOAvailableFieldsLinked4" VALUE=" 8 - DELNAME">
	<PARAM NAME="ZEKOAvailableFieldsLinked5" VALUE=" 9 - DELCITY">
	<PARAM NAME="ZEKOAvailableFieldsLinked6" VALUE=" 10 - DELCOUNTRY">
	<PARAM NAME="ZEKOAvailableFieldsLinked7" VALUE=" 11 - CARRIER">
	<PARAM NAME="ZEKOAvailableFieldsLinked8" VALUE=" 12 - SALESREP">
	<PARAM NAME="ZEKOAvailableFieldsLinked9" VALUE=" 13 - REFERENCE">
	<PARAM NAME="ZEKOAvailableFieldsLinked10" VALUE=" 14 - CHANGEDON">
	<PARAM NAME="EAIAvailableFieldsLinked0" VALUE="ORDERS.CUSTNO">
	<PARAM NAME="EAIAvailableFieldsLinked1" VALUE="ORDERS.ORDDATE">
	<PARAM NAME="EAIAvailableFieldsLinked2" VALUE="ORDERS.AMOUNT">
	<PARAM NAME="EAIAvailableFieldsLinked3" VALUE="DELIVERY.DELDATE">
	<PARAM NAME="EAIAvailableFieldsLinked4" VALUE="DELIVERY.DELCITY">
	<PARAM NAME="EAIAvailableFieldsLinked5" VALUE="DELIVERY.DELCOUNTRY">
	<PARAM NAME="NrOfSelectedZEKOLinkedFields" VALUE="3">
	<PARAM NAME="NrOfSelectedEAILinkedFields" VALUE="2">
	<PARAM NAME="EAISelectedLinkedFields0" VALUE="ORDERS.ORDNO">
	<PARAM NAME="EAISelectedLinkedFields1" VALUE="ORDERS.STATUS">
	<PARAM NAME="ZEKOSelectedLinkedFields0" VALUE=" 1 - ORDNO">
	<PARAM NAME="ZEKOSelectedLinkedFields1" VALUE=" 4 - STATUS">
	<PARAM NAME="ZEKOSelectedLinkedFields2" VALUE=" 6 - AMOUNT">
	<PARAM NAME="NrOfZEKOToLinkKeyFields" VALUE="4">
	<PARAM NAME="NrOfEAIToLinkKeyFields" VALUE="2">
	<PARAM NAME="ZEKOToLinkKeyFields0" VALUE="ORDNO">
	<PARAM NAME="ZEKOToLinkKeyFields1" VALUE="CUSTNO">
	<PARAM NAME="ZEKOToLinkKeyFields2" VALUE="ORDDATE">
	<PARAM NAME="ZEKOToLinkKeyFields3" VALUE="DELCOUNTRY">
	<PARAM NAME="EAIToLinkKeyFields0" VALUE="ORDNO">
	<PARAM NAME="EAIToLinkKeyFields1" VALUE="CUSTNO">
	<PARAM NAME="NrOfLinkedZEKOFields" VALUE="3">
	<PARAM NAME="ZEKOLinkFromFields1" VALUE="  1 - CUSTNO">
	<PARAM NAME="ZEKOLinkToFields1" VALUE="CUSTNO">
	<PARAM NAME="ZEKOLinkFromFields2" VALUE="  8 - COUNTRY">
	<PARAM NAME="ZEKOLinkToFields2" VALUE="DELCOUNTRY">
	<PARAM NAME="EAILinkFromFields1" VALUE="CUSTOMER.CUSTNO">
	<PARAM NAME="EAILinkToFields1" VALUE="CUSTNO">
</OBJECT>
-->
<!--#INCLUDE file ="../../Include/Regions.asp" -->
<!--#INCLUDE file ="../../Include/Dates.asp" -->
<%
	' Data header of this page, written by its design-time control from the settings kept above.
	' What is changed here by hand is lost when the page is saved: change the settings instead.

Function FirstCustomer()

	' Numbers below 100000 -- the old range -- are dealers & branches.
	Dim id
	id = Session("FirstCustomer")
	If Len(id) < 6 Then id = Right("000000" & id, 6)
	FirstCustomer = id

End Function 'FirstCustomer()

Function LastCustomer()

	LastCustomer = "199999"

End Function 'LastCustomer()

	Set mReturnFields = Server.CreateObject("Scripting.Dictionary")
	Set mReturnLinkedFields = Server.CreateObject("Scripting.Dictionary")
	Set mLinkedFields = Server.CreateObject("Scripting.Dictionary")

	Set mDataProvider = Server.CreateObject("Velmora.DataProvider")
	mDataProvider.Open "Customers"
	mDataProvider.PageSize = 10
	mDataProvider.ExtraFilters = true

	' The provider knows in which of the two ways this installation reaches its data.
	Select Case mDataProvider.BISType
		Case "eai"
			mDataProvider.KeyFields = Array("CUSTNO", "COUNTRY")
			mDataProvider.SortField = "CUSTNO"
			mReturnFields.Add "CUSTOMER.CUSTNO", "CUSTOMER.CUSTNO"
			mReturnFields.Add "CUSTOMER.NAME", "CUSTOMER.NAME"
			mReturnFields.Add "ADDRESS.CITY", "ADDRESS.CITY"
			mReturnFields.Add "ADDRESS.REGION", "ADDRESS.REGION"
			
			mDataProvider.SetKeyValue "COUNTRY", 0, "NL"
			mDataProvider.SetKeyValue "CUSTNO", 2, FirstCustomer()
			mDataProvider.SetKeyValue "CUSTNO", 1, LastCustomer()
			
			mDataProvider.setTranslatedFieldNames( Array( _
				"CUSTNO",  _
				"NAME",  _
				"CITY" _
			))
			mDataProvider.setTranslatedFieldValues( Array( _
				"REGION" _
			))
			mReturnLinkedFields.Add "ORDERS.ORDNO", "ORDERS.ORDNO"
			mReturnLinkedFields.Add "ORDERS.STATUS", "ORDERS.STATUS"
			
			mLinkedFields.Add "CUSTNO", "CUSTNO"

		Case "zeko"
			mDataProvider.KeyFields = Array("CUSTNO", "COUNTRY", "REGION")
			mDataProvider.SortField = "CUSTNO"
			mReturnFields.Add   1, "CUSTNO"
			mReturnFields.Add   2, "NAME"
			mReturnFields.Add   8, "COUNTRY"
			mReturnFields.Add   9, "REGION"
			mReturnFields.Add  25, "CREDITLIMIT"
			mReturnFields.Add  47, "TURNOVER"
			mReturnFields.Add  108, "MARGIN12"
			
			mDataProvider.SetKeyValue "COUNTRY", 0, "NL"
			mDataProvider.SetKeyValue "REGION", 0, CurrentRegion()
			mDataProvider.SetKeyValue "CUSTNO", 2, FirstCustomer()
			
			mDataProvider.setTranslatedFieldNames( Array( _
				"CUSTNO",  _
				"NAME",  _
				"COUNTRY",  _
				"REGION" _
			))
			mDataProvider.setTranslatedFieldValues( Array( _
				"REGION" _
			))
			mReturnLinkedFields.Add  1, "ORDNO"
			mReturnLinkedFields.Add  4, "STATUS"
			mReturnLinkedFields.Add  6, "AMOUNT"
			
			mLinkedFields.Add "CUSTNO", "CUSTNO"
mLinkedFields.Add "COUNTRY", "DELCOUNTRY"
			
	End Select

	' A second provider is opened only where fields of the first lead to it.
	If mLinkedFields.Count > 0 Then
		Set lLinkedDataProvider = Server.CreateObject("Velmora.DataProvider")
		lLinkedDataProvider.Open "Orders"
		mDataProvider.Link lLinkedDataProvider, mLinkedFields
	End If

	mXSLFilename = Server.MapPath("../../xsl/Wide.xsl")
%>
<!--METADATA TYPE="DesignerControl" endspan-->
<h1>Customers of my region</h1>
<p>Turnover in €; customers without orders this year are grey.</p>
<%
	If mLinkedFields.Count > 0 Then
		mDataProvider.RenderLinked mReturnFields, mReturnLinkedFields, mXSLFilename
	Else
		mDataProvider.Render mReturnFields, mXSLFilename
	End If
%>
</body>
</html>
