# Varnix: the expression language. It builds everywhere.
wi_library(sp
  SOURCES
    spargs.cpp sparray.cpp spcombine.cpp spconfig.cpp spcontext.cpp spconvert.cpp speval.cpp spfields.cpp spfile.cpp
    spfileparm.cpp spfold.cpp spfunc.cpp spget.cpp spgrid.cpp spmath.cpp spolist.cpp spoperand.cpp spparse.cpp
    spplot.cpp sppool.cpp spquantity.cpp sprate.cpp spscript.cpp spsort.cpp spspline.cpp spsteps.cpp sputil.cpp
    spvar.cpp
  HEADERS
    sp.h spcombine.h spconfig.h spcontext.h spconvert.h speval.h spfields.h spfunc.h spget.h spolist.h spparse.h spplot.h
    spscript.h sputil.h spvar.h
  LINKS fileio vgph)
if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  # Square roots by vector instructions.
  set_source_files_properties(spmath.cpp spquantity.cpp PROPERTIES COMPILE_OPTIONS -fno-math-errno)
endif()
