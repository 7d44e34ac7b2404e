// Statements of a script outside its dialogs.

#include "tests/unit/tools/resources/read_one.h"

namespace resources {
namespace {

using testing::ElementsAre;
using testing::Field;
using testing::SizeIs;

TEST(Script, AnEmptyOneDescribesNothing) {
  const Script script = read("// nothing\n");
  EXPECT_THAT(script.dialogs, SizeIs(0));
  EXPECT_THAT(script.binaries, SizeIs(0));
}

TEST(Script, ResourcesKeepTheirOrder) {
  const Script script = read("2 DIALOGEX 0,0,1,1 BEGIN END 1 DIALOGEX 0,0,1,1 { }");
  EXPECT_THAT(script.dialogs, ElementsAre(Field(&Dialog::id, 2), Field(&Dialog::id, 1)));
}

TEST(Script, SystemHeadersAreIgnored) {
  EXPECT_THAT(read("#include <windows.h>\n5 DIALOGEX 0,0,1,1 BEGIN END").dialogs, SizeIs(1));
}

TEST(Script, SymbolsStandForTheirNumber) {
  const Script script = read("#include \"resource.h\"\nIDD_SETTINGS DIALOGEX 0,0,1,1 BEGIN END");
  EXPECT_EQ(script.dialogs.at(0).id, 100U);
}

TEST(Script, SymbolsAreUnknownBeforeTheHeaderIsIncluded) {
  EXPECT_EQ(refusal_of("\nIDD_SETTINGS DIALOGEX 0,0,1,1 BEGIN END"),
            "test.rc:2: found IDD_SETTINGS, allowed a symbol of the included header or a number");
}

TEST(Script, AnotherHeaderIsRefused) {
  EXPECT_EQ(refusal_of("#include \"other.h\""),
            "test.rc:1: found \"other.h\", allowed \"resource.h\"");
}

TEST(Script, OtherDirectivesAreRefused) {
  EXPECT_EQ(refusal_of("#define A 1"), "test.rc:1: found define, allowed include");
}

TEST(Script, OtherTypesOfResourcesAreRefused) {
  EXPECT_EQ(refusal_of("1 ICON \"a.ico\""), "test.rc:1: found ICON, allowed DIALOGEX or BINARY");
}

TEST(Script, NumbersOfResourcesBeginAtOne) {
  EXPECT_EQ(refusal_of("0 BINARY BEGIN END"),
            "test.rc:1: found 0, allowed a symbol of the included header or a number from 1 to "
            "65535");
}

TEST(Script, NumbersOfResourcesHave16Bits) {
  EXPECT_EQ(refusal_of("65536 BINARY BEGIN END"),
            "test.rc:1: found 65536, allowed a symbol of the included header or a number from 1 to "
            "65535");
}

TEST(Script, TwoDialogsOfOneNumberAreRefused) {
  EXPECT_EQ(refusal_of("1 DIALOGEX 0,0,1,1 BEGIN END\n1 DIALOGEX 0,0,1,1 BEGIN END"),
            "test.rc:2: found 1, allowed a number that no other resource of this type has");
}

TEST(Script, TwoBinariesOfOneNumberAreRefused) {
  EXPECT_EQ(refusal_of("1 BINARY BEGIN END\n1 BINARY BEGIN END"),
            "test.rc:2: found 1, allowed a number that no other resource of this type has");
}

TEST(Script, ADialogAndABinaryMayShareANumber) {
  EXPECT_EQ(refusal_of("1 DIALOGEX 0,0,1,1 BEGIN END\n1 BINARY BEGIN END"), "accepted");
}

TEST(BinaryStatement, HoldsTheBytesOfItsTextsWithoutZeros) {
  const Script script = read("65533 BINARY BEGIN \"tz_\", \"alu\" \"\\n\" END");
  EXPECT_EQ(script.binaries.at(0).id, 65533U);
  EXPECT_EQ(script.binaries.at(0).type, "BINARY");
  EXPECT_EQ(script.binaries.at(0).bytes, "tz_alu\n");
}

TEST(BinaryStatement, MayBeEmpty) {
  EXPECT_EQ(read("1 BINARY { }").binaries.at(0).bytes, "");
}

TEST(BinaryStatement, HoldsTheSymbolsUnderTheirFileName) {
  EXPECT_EQ(read("65534 BINARY \"resource_header.bin\"").binaries.at(0).bytes,
            header_resource(test_symbols));
}

TEST(BinaryStatement, OtherFilesAreRefused) {
  EXPECT_EQ(refusal_of("1 BINARY \"picture.bin\""),
            "test.rc:1: found \"picture.bin\", allowed \"resource_header.bin\"");
}

TEST(BinaryStatement, TextsThatAreNotAsciiAreRefused) {
  EXPECT_EQ(refusal_of("1 BINARY BEGIN \"\xC3\xA9\" END"),
            "test.rc:1: found \"\xC3\xA9\", allowed an ASCII text or END");
}

TEST(BinaryStatement, NumbersAreRefused) {
  EXPECT_EQ(refusal_of("1 BINARY BEGIN 7 END"), "test.rc:1: found 7, allowed an ASCII text or END");
}

TEST(BinaryStatement, ACommaBeforeTheEndIsRefused) {
  EXPECT_EQ(refusal_of("1 BINARY BEGIN \"a\", END"), "test.rc:1: found END, allowed an ASCII text");
}

TEST(BinaryStatement, WithoutDataIsRefused) {
  EXPECT_EQ(refusal_of("1 BINARY"),
            "test.rc:1: found the end of the file, allowed a file name in double quotes or BEGIN");
}

}  // namespace
}  // namespace resources
