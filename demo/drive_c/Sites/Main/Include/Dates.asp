<%
	' Dates as the data providers take them: year, month and day without separators.
	Function ProviderDate(moment)
		ProviderDate = Year(moment) & Right("0" & Month(moment), 2) & Right("0" & Day(moment), 2)
	End Function

	Function FirstDayOfMonth()
		FirstDayOfMonth = ProviderDate(DateSerial(Year(Date), Month(Date), 1))
	End Function

	Function FirstDayOfYear()
		FirstDayOfYear = ProviderDate(DateSerial(Year(Date), 1, 1))
	End Function
%>
