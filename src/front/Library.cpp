// The only file of the shared library's own: CMake wants a source. Its code is the whole of
// zelconvert_core, its border the functions of Exports.cpp, which zelconvert.map and
// zelconvert.def list.
