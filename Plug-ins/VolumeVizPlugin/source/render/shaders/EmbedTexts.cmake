# cmake -DOUTPUT=file.cpp -DHEADER=header -DTEXTS="name=piece+piece;name=piece" -P EmbedTexts.cmake
#
# Composes shader pieces of this folder into constant texts: one `const char* const name` each, the pieces in
# the order given.
set(code "// Composed from the pieces in render/shaders by EmbedTexts.cmake.\n#include \"${HEADER}\"\n")
foreach(text ${TEXTS})
    string(REGEX MATCH "^([^=]+)=(.+)$" parts ${text})
    set(name ${CMAKE_MATCH_1})
    string(REPLACE "+" ";" pieces ${CMAKE_MATCH_2})
    set(body "")
    foreach(piece ${pieces})
        file(READ ${CMAKE_CURRENT_LIST_DIR}/${piece} content)
        string(APPEND body "${content}\n")
    endforeach()
    string(APPEND code "\nconst char* const ${name} = R\"glsl(${body})glsl\";\n")
endforeach()
file(WRITE ${OUTPUT} "${code}")
