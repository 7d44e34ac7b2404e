# Writes the C++ source SOURCE that holds the bytes of FILE.
file(READ ${FILE} bytes HEX)
string(REGEX REPLACE "(..)" "'\\\\x\\1'," bytes "${bytes}")
string(REGEX REPLACE "((....[^,]?[^,]?,)(......,){15})" "\\1\n" bytes "${bytes}")
file(WRITE ${SOURCE} "#include \"aluframe/texts/catalogue.h\"

namespace aluframe::texts {

namespace {

constexpr char bytes[] = {
${bytes}
};

}  // namespace

Catalogue chinese_catalogue() {
  return Catalogue({bytes, sizeof bytes});
}

}  // namespace aluframe::texts
")
