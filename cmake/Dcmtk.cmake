# viz_dcmtk: the parts of DCMTK that the plug-in may use, in the same shared libraries in which hvdicom registers its
# decoders. viz_dcmtk_codecs: decoders and encoders beside them, for hvdicom and for tests.
find_package(DCMTK 3.6.7 CONFIG REQUIRED)

add_library(viz_dcmtk INTERFACE)
target_link_libraries(viz_dcmtk INTERFACE DCMTK::dcmimgle DCMTK::dcmdata DCMTK::oflog DCMTK::ofstd)

add_library(viz_dcmtk_codecs INTERFACE)
target_link_libraries(viz_dcmtk_codecs INTERFACE viz_dcmtk DCMTK::dcmjpeg DCMTK::dcmjpls)

# viz_openjpeg: JPEG 2000, which DCMTK has not.
find_package(PkgConfig REQUIRED)
pkg_check_modules(OPENJPEG REQUIRED IMPORTED_TARGET libopenjp2>=2.5)
add_library(viz_openjpeg INTERFACE)
target_link_libraries(viz_openjpeg INTERFACE PkgConfig::OPENJPEG)
