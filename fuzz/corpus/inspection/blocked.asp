<%@ LANGUAGE="VBScript" %>
<html>
<head><title>Blocked customers</title></head>
<body>
<!--METADATA TYPE="DesignerControl" startspan
<OBJECT ID="PageBanner1" CLASSID="clsid:5C1F0E7A-90B4-11D2-8E1D-3B6A20C4F6D9" dtcid="7">
     <param name=Caption value="Blocked customers">
     <param name=Width value=640>
</OBJECT>
-->
<table width=640 class=banner><tr><td>Blocked customers</td></tr></table>
<!--METADATA TYPE="DesignerControl" endspan-->
<!--METADATA TYPE="DesignerControl" startspan
<OBJECT ID="HeaderDTC1" CLASSID="clsid:2F9DAB28-6BB4-469F-A568-9CA7A4217B69">
	<PARAM NAME="ZEKOReturnFields0" VALUE="  1 - CUSTNO">
	<PARAM NAME="ZEKOReturnFields1" VALUE="  2 - NAME">
	<PARAM NAME="ZEKOReturnFields2" VALUE=" 34 - BLOCKED">
	<PARAM NAME="ZEKOReturnFields3" VALUE=" 35 - BLOCKREASON">
	<PARAM NAME="ZEKOCriteria1_1" VALUE="COUNTRY">
	<PARAM NAME="ZEKOCriteria1_2" VALUE="==">
	<PARAM NAME="ZEKOCriteria1_3" VALUE="NL">
	<PARAM NAME="ZEKOCriteria1_4" VALUE="...">
	<PARAM NAME="ZEKOCriteriaCount" VALUE="2">
	<PARAM NAME="EAICriteriaCount" VALUE="2">
	<PARAM NAME="ZEKOReturnFieldCount" VALUE="4">
	<PARAM NAME="DataProvider" VALUE="Customers">
	<PARAM NAME="ZEKOAvailableFieldsCount" VALUE="116">
	<PARAM NAME="ZEKOAvailableFields0" VALUE="  3 - NAME2">
	<PARAM NAME="ZEKOAvailableFields1" VALUE="  4 - SEARCHKEY">
	<PARAM NAME="ZEKOAvailableFields2" VALUE="  5 - STREET">
	<PARAM NAME="ZEKOAvailableFields3" VALUE="  6 - POSTCODE">
	<PARAM NAME="ZEKOAvailableFields4" VALUE="  7 - CITY">
	<PARAM NAME="ZEKOAvailableFields5" VALUE="  8 - COUNTRY">
	<PARAM NAME="ZEKOAvailableFields6" VALUE="  9 - REGION">
	<PARAM NAME="ZEKOAvailableFields7" VALUE=" 10 - LANGUAGE">
	<PARAM NAME="ZEKOAvailableFields8" VALUE=" 11 - PHONE">
	<PARAM NAME="ZEKOAvailableFields9" VALUE=" 12 - FAX">
	<PARAM NAME="ZEKOAvailableFields10" VALUE=" 13 - EMAIL">
	<PARAM NAME="ZEKOAvailableFields11" VALUE=" 14 - WWW">
	<PARAM NAME="ZEKOAvailableFields12" VALUE=" 15 - CONTACT">
	<PARAM NAME="ZEKOAvailableFields13" VALUE=" 16 - CONTACTPHONE">
	<PARAM NAME="ZEKOAvailableFields14" VALUE=" 17 - SALESREP">
	<PARAM NAME="ZEKOAvailableFields15" VALUE=" 18 - CUSTGROUP">
	<PARAM NAME="ZEKOAvailableFields16" VALUE=" 19 - PRICELIST">
	<PARAM NAME="ZEKOAvailableFields17" VALUE=" 20 - DISCOUNTGROUP">
	<PARAM NAME="ZEKOAvailableFields18" VALUE=" 21 - CURRENCY">
	<PARAM NAME="ZEKOAvailableFields19" VALUE=" 22 - PAYTERMS">
	<PARAM NAME="ZEKOAvailableFields20" VALUE=" 23 - DELTERMS">
	<PARAM NAME="ZEKOAvailableFields21" VALUE=" 24 - CARRIER">
	<PARAM NAME="ZEKOAvailableFields22" VALUE=" 25 - CREDITLIMIT">
	<PARAM NAME="ZEKOAvailableFields23" VALUE=" 26 - CREDITUSED">
	<PARAM NAME="ZEKOAvailableFields24" VALUE=" 27 - CREDITDATE">
	<PARAM NAME="ZEKOAvailableFields25" VALUE=" 28 - DUNNINGLEVEL">
	<PARAM NAME="ZEKOAvailableFields26" VALUE=" 29 - DUNNINGDATE">
	<PARAM NAME="ZEKOAvailableFields27" VALUE=" 30 - VATNO">
	<PARAM NAME="ZEKOAvailableFields28" VALUE=" 31 - VATCODE">
	<PARAM NAME="ZEKOAvailableFields29" VALUE=" 32 - BANKCODE">
	<PARAM NAME="ZEKOAvailableFields30" VALUE=" 33 - BANKACCOUNT">
	<PARAM NAME="ZEKOAvailableFields31" VALUE=" 36 - CREATEDON">
	<PARAM NAME="ZEKOAvailableFields32" VALUE=" 37 - CREATEDBY">
	<PARAM NAME="ZEKOAvailableFields33" VALUE=" 38 - CHANGEDON">
	<PARAM NAME="ZEKOAvailableFields34" VALUE=" 39 - CHANGEDBY">
	<PARAM NAME="ZEKOAvailableFields35" VALUE=" 40 - FIRSTORDER">
	<PARAM NAME="ZEKOAvailableFields36" VALUE=" 41 - LASTORDER">
	<PARAM NAME="ZEKOAvailableFields37" VALUE=" 42 - LASTINVOICE">
	<PARAM NAME="ZEKOAvailableFields38" VALUE=" 43 - LASTPAYMENT">
	<PARAM NAME="ZEKOAvailableFields39" VALUE=" 44 - OPENORDERS">
	<PARAM NAME="ZEKOAvailableFields40" VALUE=" 45 - OPENITEMS">
	<PARAM NAME="ZEKOAvailableFields41" VALUE=" 46 - BALANCE">
	<PARAM NAME="ZEKOAvailableFields42" VALUE=" 47 - TURNOVER">
	<PARAM NAME="ZEKOAvailableFields43" VALUE=" 48 - TURNOVERLY">
	<PARAM NAME="ZEKOAvailableFields44" VALUE=" 49 - TURNOVER01">
	<PARAM NAME="ZEKOAvailableFields45" VALUE=" 50 - TURNOVER02">
	<PARAM NAME="ZEKOAvailableFields46" VALUE=" 51 - TURNOVER03">
	<PARAM NAME="ZEKOAvailableFields47" VALUE=" 52 - TURNOVER04">
	<PARAM NAME="ZEKOAvailableFields48" VALUE=" 53 - TURNOVER05">
	<PARAM NAME="ZEKOAvailableFields49" VALUE=" 54 - TURNOVER06">
	<PARAM NAME="ZEKOAvailableFields50" VALUE=" 55 - TURNOVER07">
	<PARAM NAME="ZEKOAvailableFields51" VALUE=" 56 - TURNOVER08">
	<PARAM NAME="ZEKOAvailableFields52" VALUE=" 57 - TURNOVER09">
	<PARAM NAME="ZEKOAvailableFields53" VALUE=" 58 - TURNOVER10">
	<PARAM NAME="ZEKOAvailableFields54" VALUE=" 59 - TURNOVER11">
	<PARAM NAME="ZEKOAvailableFields55" VALUE=" 60 - TURNOVER12">
	<PARAM NAME="ZEKOAvailableFields56" VALUE=" 61 - TURNOVERLY01">
	<PARAM NAME="ZEKOAvailableFields57" VALUE=" 62 - TURNOVERLY02">
	<PARAM NAME="ZEKOAvailableFields58" VALUE=" 63 - TURNOVERLY03">
	<PARAM NAME="ZEKOAvailableFields59" VALUE=" 64 - TURNOVERLY04">
	<PARAM NAME="ZEKOAvailableFields60" VALUE=" 65 - TURNOVERLY05">
	<PARAM NAME="ZEKOAvailableFields61" VALUE=" 66 - TURNOVERLY06">
	<PARAM NAME="ZEKOAvailableFields62" VALUE=" 67 - TURNOVERLY07">
	<PARAM NAME="ZEKOAvailableFields63" VALUE=" 68 - TURNOVERLY08">
	<PARAM NAME="ZEKOAvailableFields64" VALUE=" 69 - TURNOVERLY09">
	<PARAM NAME="ZEKOAvailableFields65" VALUE=" 70 - TURNOVERLY10">
	<PARAM NAME="ZEKOAvailableFields66" VALUE=" 71 - TURNOVERLY11">
	<PARAM NAME="ZEKOAvailableFields67" VALUE=" 72 - TURNOVERLY12">
	<PARAM NAME="ZEKOAvailableFields68" VALUE=" 73 - ORDERS01">
	<PARAM NAME="ZEKOAvailableFields69" VALUE=" 74 - ORDERS02">
	<PARAM NAME="ZEKOAvailableFields70" VALUE=" 75 - ORDERS03">
	<PARAM NAME="ZEKOAvailableFields71" VALUE=" 76 - ORDERS04">
	<PARAM NAME="ZEKOAvailableFields72" VALUE=" 77 - ORDERS05">
	<PARAM NAME="ZEKOAvailableFields73" VALUE=" 78 - ORDERS06">
	<PARAM NAME="ZEKOAvailableFields74" VALUE=" 79 - ORDERS07">
	<PARAM NAME="ZEKOAvailableFields75" VALUE=" 80 - ORDERS08">
	<PARAM NAME="ZEKOAvailableFields76" VALUE=" 81 - ORDERS09">
	<PARAM NAME="ZEKOAvailableFields77" VALUE=" 82 - ORDERS10">
	<PARAM NAME="ZEKOAvailableFields78" VALUE=" 83 - ORDERS11">
	<PARAM NAME="ZEKOAvailableFields79" VALUE=" 84 - ORDERS12">
	<PARAM NAME="ZEKOAvailableFields80" VALUE=" 85 - RETURNS01">
	<PARAM NAME="ZEKOAvailableFields81" VALUE=" 86 - RETURNS02">
	<PARAM NAME="ZEKOAvailableFields82" VALUE=" 87 - RETURNS03">
	<PARAM NAME="ZEKOAvailableFields83" VALUE=" 88 - RETURNS04">
	<PARAM NAME="ZEKOAvailableFields84" VALUE=" 89 - RETURNS05">
	<PARAM NAME="ZEKOAvailableFields85" VALUE=" 90 - RETURNS06">
	<PARAM NAME="ZEKOAvailableFields86" VALUE=" 91 - RETURNS07">
	<PARAM NAME="ZEKOAvailableFields87" VALUE=" 92 - RETURNS08">
	<PARAM NAME="ZEKOAvailableFields88" VALUE=" 93 - RETURNS09">
	<PARAM NAME="ZEKOAvailableFields89" VALUE=" 94 - RETURNS10">
	<PARAM NAME="ZEKOAvailableFields90" VALUE=" 95 - RETURNS11">
	<PARAM NAME="ZEKOAvailableFields91" VALUE=" 96 - RETURNS12">
	<PARAM NAME="ZEKOAvailableFields92" VALUE=" 97 - MARGIN01">
	<PARAM NAME="ZEKOAvailableFields93" VALUE=" 98 - MARGIN02">
	<PARAM NAME="ZEKOAvailableFields94" VALUE=" 99 - MARGIN03">
	<PARAM NAME="ZEKOAvailableFields95" VALUE=" 100 - MARGIN04">
	<PARAM NAME="ZEKOAvailableFields96" VALUE=" 101 - MARGIN05">
	<PARAM NAME="ZEKOAvailableFields97" VALUE=" 102 - MARGIN06">
	<PARAM NAME="ZEKOAvailableFields98" VALUE=" 103 - MARGIN07">
	<PARAM NAME="ZEKOAvailableFields99" VALUE=" 104 - MARGIN08">
	<PARAM NAME="ZEKOAvailableFields100" VALUE=" 105 - MARGIN09">
	<PARAM NAME="ZEKOAvailableFields101" VALUE=" 106 - MARGIN10">
	<PARAM NAME="ZEKOAvailableFields102" VALUE=" 107 - MARGIN11">
	<PARAM NAME="ZEKOAvailableFields103" VALUE=" 108 - MARGIN12">
	<PARAM NAME="ZEKOAvailableFields104" VALUE=" 109 - REMARK1">
	<PARAM NAME="ZEKOAvailableFields105" VALUE=" 110 - REMARK2">
	<PARAM NAME="ZEKOAvailableFields106" VALUE=" 111 - REMARK3">
	<PARAM NAME="ZEKOAvailableFields107" VALUE=" 112 - REMARK4">
	<PARAM NAME="ZEKOAvailableFields108" VALUE=" 113 - REMARK5">
	<PARAM NAME="ZEKOAvailableFields109" VALUE=" 114 - REMARK6">
	<PARAM NAME="ZEKOAvailableFields110" VALUE=" 115 - ATTRIBUTE1">
	<PARAM NAME="ZEKOAvailableFields111" VALUE=" 116 - ATTRIBUTE2">
	<PARAM NAME="ZEKOAvailableFields112" VALUE=" 117 - ATTRIBUTE3">
	<PARAM NAME="ZEKOAvailableFields113" VALUE=" 118 - ATTRIBUTE4">
	<PARAM NAME="ZEKOAvailableFields114" VALUE=" 119 - ATTRIBUTE5">
	<PARAM NAME="ZEKOAvailableFields115" VALUE=" 120 - ATTRIBUTE6">
	<PARAM NAME="ZEKOKeyFieldsCount" VALUE="3">
	<PARAM NAME="ZEKOKeyFieldnames0" VALUE="CUSTNO">
	<PARAM NAME="ZEKOKeyFieldnames1" VALUE="COUNTRY">
	<PARAM NAME="ZEKOKeyFieldnames2" VALUE="REGION">
	<PARAM NAME="ZEKOCriteriaType1" VALUE="NL">
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
	mDataProvider.Open "Customers"
	mDataProvider.PageSize = 10
	mDataProvider.ExtraFilters = false

	' The provider knows in which of the two ways this installation reaches its data.
	Select Case mDataProvider.BISType
		Case "eai"
			mDataProvider.KeyFields = Array()
			mDataProvider.SortField = ""
			
			
			
			
			
			
		Case "zeko"
			mDataProvider.KeyFields = Array("CUSTNO", "COUNTRY", "REGION")
			mDataProvider.SortField = "CUSTNO"
			mReturnFields.Add   1, "CUSTNO"
			mReturnFields.Add   2, "NAME"
			mReturnFields.Add  34, "BLOCKED"
			mReturnFields.Add  35, "BLOCKREASON"
			
			mDataProvider.SetKeyValue "COUNTRY", 0, "NL"
			
			
			
			
			
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
