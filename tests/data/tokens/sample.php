<?php
// A small PHP sample
# hash comment
/* block
   comment */
function greet(string $name, int $count = 3): string {
    $text = "Hello {$name}";
    $raw = 'single \'quoted\'';
    $hex = 0x1F + 1_000;
    $out = `ls -la`;
    $doc = <<<EOT
Heredoc text with $name
EOT;
    return strlen($text) > 0 ? $text : null;
}
echo greet("World");
?>
