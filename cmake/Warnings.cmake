# Every warning is an error. -Wno-cpp: Qt's GL headers announce that GLEW was there first.
add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wcast-qual -Wno-cpp -Werror)
add_compile_definitions(QT_NO_FOREACH)
