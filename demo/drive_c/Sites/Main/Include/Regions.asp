<%
	' The region of the signed-in user; who has none sees the north.
	Function CurrentRegion()
		CurrentRegion = Session("Region")
		If CurrentRegion = "" Then CurrentRegion = "N"
	End Function
%>
