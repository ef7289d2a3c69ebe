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
<!--METADATA TYPE="DesignerControl" endspan-->
<% mDataProvider.Render mReturnFields, mXSLFilename %>
</body>
</html>
