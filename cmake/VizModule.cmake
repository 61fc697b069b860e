# viz_library(NAME [STATIC|SHARED|MODULE|OBJECT] [RECURSIVE] [SOURCES file...] [DEPENDS target...] [LINKS target...]
#             [INCLUDES dir...])
#
# One module of the program: every .cpp, .h and .qrc of the folder that calls it (and of its sub-folders with
# RECURSIVE), plus SOURCES. DEPENDS are seen by whoever links the module, LINKS are its own affair. INCLUDES are
# its private include folders: a module sees another one's headers only by depending on it.
function(viz_library name)
    cmake_parse_arguments(ARG "STATIC;SHARED;MODULE;OBJECT;RECURSIVE" "" "SOURCES;DEPENDS;LINKS;INCLUDES" ${ARGN})
    set(kind STATIC)
    foreach(k SHARED MODULE OBJECT)
        if(ARG_${k})
            set(kind ${k})
        endif()
    endforeach()
    set(glob GLOB)
    if(ARG_RECURSIVE)
        set(glob GLOB_RECURSE)
    endif()
    file(${glob} files CONFIGURE_DEPENDS
         ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h ${CMAKE_CURRENT_SOURCE_DIR}/*.qrc)
    add_library(${name} ${kind} ${files} ${ARG_SOURCES})
    target_link_libraries(${name} PUBLIC ${ARG_DEPENDS} PRIVATE ${ARG_LINKS})
    target_include_directories(${name} PRIVATE ${ARG_INCLUDES})
endfunction()

# viz_host_library(NAME [DEPENDS ...] [LINKS ...] [PENDING header...])
#
# A shared library of the workstation that keeps the contract of host/NAME. PENDING names contract headers
# (relative to host/NAME) whose classes have no implementation yet: moc leaves them alone.
function(viz_host_library name)
    cmake_parse_arguments(ARG "" "" "DEPENDS;LINKS;PENDING" ${ARGN})
    file(GLOB_RECURSE contract CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/host/${name}/*.h)
    foreach(header ${ARG_PENDING})
        list(REMOVE_ITEM contract ${CMAKE_SOURCE_DIR}/host/${name}/${header})
    endforeach()
    viz_library(${name} SHARED RECURSIVE SOURCES ${contract} DEPENDS ${ARG_DEPENDS} LINKS ${ARG_LINKS}
                INCLUDES ${CMAKE_CURRENT_SOURCE_DIR})
    target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR}/host)
    string(TOUPPER ${name} upper)
    target_compile_definitions(${name} PRIVATE ${upper}_BUILD)
    target_link_options(${name} PRIVATE -Wl,--no-undefined -Wl,--as-needed)
endfunction()
