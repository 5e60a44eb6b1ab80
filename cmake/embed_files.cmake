# Writes FILES as one source file, OUTPUT: each a row {"name without its ending", "its text"} of ROW,
# which HEADER declares in NAMESPACE beside FUNCTION, the span of all rows. Included by the scripts
# that name these.
list(SORT FILES)
set(rows "")
foreach(file IN LISTS FILES)
  get_filename_component(name ${file} NAME_WE)
  file(READ ${file} text)
  string(APPEND rows "    {\"${name}\", R\"kt7file(${text})kt7file\"},\n")
endforeach()
file(WRITE ${OUTPUT} "#include \"${HEADER}\"

namespace ${NAMESPACE} {
namespace {

constexpr ${ROW} kFiles[] = {
${rows}};

}  // namespace

std::span<const ${ROW}> ${FUNCTION}() { return kFiles; }

}  // namespace ${NAMESPACE}
")
