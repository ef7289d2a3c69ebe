<%@ LANGUAGE="VBScript" %>
<html>
<head>
<title>Velmora - Dashboard</title>
<link rel="stylesheet" href="style/dashboard.css">
</head>
<body>
<!--#INCLUDE file ="menu.inc" -->
<h1>Dashboard</h1>
<p>Choose a page. Amounts are in €, as of today’s close.</p>
<ul>
<li><a href="stock.asp">Stock</a></li>
<li><a href="invoices.asp">Invoices of Søren &amp; Co</a></li>
<li><a href="orders/list.asp">Orders of this month</a></li>
<li><a href="orders/compare.asp">Orders and their lines</a></li>
<li><a href="orders/athens.asp">Orders for Athens</a></li>
<li><a href="customers/blocked.asp">Blocked customers</a></li>
<li><a href="customers/regions/overview.asp">Customers of my region</a></li>
</ul>
</body>
</html>
