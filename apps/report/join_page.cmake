# cmake -DOUTPUT=page.html -P join_page.cmake: the page with its style and its scripts in it.
set(folder ${CMAKE_CURRENT_LIST_DIR})
file(READ ${folder}/page.html page)
file(READ ${folder}/page.css style)
set(script "")
# In the order in which they need one another.
foreach(name IN ITEMS texts trace list timeline details page)
    file(READ ${folder}/${name}.js part)
    string(APPEND script "${part}\n")
endforeach()
string(REPLACE "/*{style}*/" "${style}" page "${page}")
string(REPLACE "/*{script}*/" "${script}" page "${page}")
file(WRITE ${OUTPUT} "${page}")
