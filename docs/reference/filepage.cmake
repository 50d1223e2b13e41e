# Writes the qdoc page of a file that a guide explains: cmake -DSOURCE=... -DNAME=... -DPAGE=... -P filepage.cmake

file(READ "${SOURCE}" text)
string(REPLACE "&" "&amp;" text "${text}")
string(REPLACE "<" "&lt;" text "${text}")
string(REPLACE ">" "&gt;" text "${text}")
string(REPLACE "\"" "&quot;" text "${text}")
# The last two have a meaning for qdoc.
string(REPLACE "\\" "&#92;" text "${text}")
string(REPLACE "*/" "*&#47;" text "${text}")
string(REGEX REPLACE "^.*/docs/[a-z]+/" "" title "${SOURCE}")
file(WRITE "${PAGE}" "/*!
\\page ${NAME}.html
\\title ${title}

\\raw HTML
<pre class=\"file\">${text}</pre>
\\endraw
*/
")
