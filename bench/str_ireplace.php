<?php
// Thirty successive case-insensitive replacements in a text of 64 KB, as a script would do them.
$placeholders = [];
for ($i = 0; $i < 30; $i++) $placeholders[] = "<PLACEHOLDER_NUMBER_$i>";
$template = "";
while (strlen($template) < 65536)
    foreach ($placeholders as $i => $placeholder)
        $template .= "\t\t\tmProvider.SomeSetting = " .
            ($i < 12 && str_contains($template, $placeholder) ? "" : $placeholder) .
            "\r\n\t' A remark of the template's author about the setting above.\r\n";
$values = [];
foreach ($placeholders as $i => $placeholder)
    $values[] = $i < 12
        ? str_repeat("<DATAPROVIDER_VARNAME>.Add \"FIELDNAME\", \"FIELDNAME\"\r\n\t\t\t", 200)
        : "value";
$rounds = 200;
$begin = hrtime(true);
for ($round = 0; $round < $rounds; $round++) {
    $text = $template;
    foreach ($placeholders as $i => $placeholder)
        $text = str_ireplace($placeholder, $values[$i], $text);
}
printf("php str_ireplace, thirty passes: %.0f us, result %d KB\n",
       (hrtime(true) - $begin) / $rounds / 1000, strlen($text) / 1024);
