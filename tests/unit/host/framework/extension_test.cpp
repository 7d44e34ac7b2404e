// Start-up of extension modules, and the search of what they carry.

#include "host/framework/extension.h"

#include <gtest/gtest.h>

namespace {

constexpr UINT kShared = 10;  // a template that both modules carry
constexpr UINT kOwn = 11;     // one that only the first carries
constexpr UINT kBinary = 20;

constexpr DIALOG_TEMPLATE kFirstDialogs[] = {
    {kShared, L"first", 10, 10, true, true, {}},
    {kOwn, L"own", 10, 10, true, true, {}},
};
constexpr DIALOG_TEMPLATE kSecondDialogs[] = {
    {kShared, L"second", 10, 10, true, true, {}},
};
constexpr unsigned char kBytes[] = {7};
constexpr unsigned char kOtherBytes[] = {8, 9};
constexpr BINARY_RESOURCE kBinaries[] = {
    {kBinary, L"Picture", kOtherBytes},
    {kBinary, L"BINARY", kBytes},
};
const MODULE_RESOURCES kFirst{kFirstDialogs, kBinaries};
const MODULE_RESOURCES kSecond{kSecondDialogs, {}};

class ExtensionTest : public testing::Test {
 protected:
  ~ExtensionTest() override {
    AfxTermExtensionModule(first_);
    AfxTermExtensionModule(second_);
  }
  static void Start(AFX_EXTENSION_MODULE& state, HINSTANCE module) {
    ASSERT_NE(AfxInitExtensionModule(state, module), FALSE);
    new CDynLinkLibrary(state);
  }

  AFX_EXTENSION_MODULE first_;
  AFX_EXTENSION_MODULE second_;
};

TEST_F(ExtensionTest, AStartedModuleIsInItsState) {
  EXPECT_EQ(AfxInitExtensionModule(first_, &kFirst), TRUE);
  EXPECT_EQ(first_.bInitialized, TRUE);
  EXPECT_EQ(first_.hModule, &kFirst);
}

TEST_F(ExtensionTest, AStateStartsOnce) {
  ASSERT_EQ(AfxInitExtensionModule(first_, &kFirst), TRUE);
  EXPECT_EQ(AfxInitExtensionModule(first_, &kFirst), FALSE);
  EXPECT_EQ(AfxInitExtensionModule(first_, &kSecond), FALSE);
  EXPECT_EQ(first_.hModule, &kFirst);
}

TEST_F(ExtensionTest, AModuleStartsOnce) {
  ASSERT_EQ(AfxInitExtensionModule(first_, &kFirst), TRUE);
  EXPECT_EQ(AfxInitExtensionModule(second_, &kFirst), FALSE);
  EXPECT_EQ(second_.bInitialized, FALSE);
  EXPECT_EQ(second_.hModule, nullptr);
}

TEST_F(ExtensionTest, NoModuleDoesNotStart) {
  EXPECT_EQ(AfxInitExtensionModule(first_, nullptr), FALSE);
  EXPECT_EQ(first_.bInitialized, FALSE);
}

TEST_F(ExtensionTest, AnEndedModuleStartsAgain) {
  ASSERT_EQ(AfxInitExtensionModule(first_, &kFirst), TRUE);
  AfxTermExtensionModule(first_);
  EXPECT_EQ(first_.bInitialized, FALSE);
  EXPECT_EQ(first_.hModule, nullptr);
  EXPECT_EQ(AfxInitExtensionModule(second_, &kFirst), TRUE);
}

TEST_F(ExtensionTest, EndingAModuleAtRestEndsNoOther) {
  Start(first_, &kFirst);
  AfxTermExtensionModule(second_);
  EXPECT_NE(AfxFindDialogTemplate(kOwn), nullptr);
}

TEST_F(ExtensionTest, AModuleIsSearchedOnceItHasARecord) {
  ASSERT_EQ(AfxInitExtensionModule(first_, &kFirst), TRUE);
  EXPECT_EQ(AfxFindDialogTemplate(kOwn), nullptr);
  const auto* library = new CDynLinkLibrary(first_);
  EXPECT_EQ(library->Module(), &kFirst);
  EXPECT_EQ(AfxFindDialogTemplate(kOwn), &kFirstDialogs[1]);
}

TEST_F(ExtensionTest, TheLatestModuleIsSearchedFirst) {
  Start(first_, &kFirst);
  EXPECT_EQ(AfxFindDialogTemplate(kShared), &kFirstDialogs[0]);
  Start(second_, &kSecond);
  EXPECT_EQ(AfxFindDialogTemplate(kShared), &kSecondDialogs[0]);
}

TEST_F(ExtensionTest, WhatTheLatestModuleLacksIsFoundInTheOneBefore) {
  Start(first_, &kFirst);
  Start(second_, &kSecond);
  EXPECT_EQ(AfxFindDialogTemplate(kOwn), &kFirstDialogs[1]);
}

TEST_F(ExtensionTest, AnEndedModuleIsNotSearched) {
  Start(first_, &kFirst);
  Start(second_, &kSecond);
  AfxTermExtensionModule(second_);
  EXPECT_EQ(AfxFindDialogTemplate(kShared), &kFirstDialogs[0]);
  AfxTermExtensionModule(first_);
  EXPECT_EQ(AfxFindDialogTemplate(kShared), nullptr);
}

TEST_F(ExtensionTest, ATemplateThatNobodyCarriesIsNotFound) {
  Start(first_, &kFirst);
  EXPECT_EQ(AfxFindDialogTemplate(12), nullptr);
}

TEST(BinaryTest, IsFoundWhateverTheCaseOfItsType) {
  for (const wchar_t* type : {L"BINARY", L"Binary", L"binary"}) {
    EXPECT_EQ(AfxFindBinary(&kFirst, kBinary, type), &kBinaries[1]);
  }
}

TEST(BinaryTest, IsTheOneOfItsType) {
  EXPECT_EQ(AfxFindBinary(&kFirst, kBinary, L"PICTURE"), &kBinaries[0]);
}

TEST(BinaryTest, OfAnotherTypeIsNotFound) {
  for (const wchar_t* type : {L"BINAR", L"BINARYS", L"TEXT", L""}) {
    EXPECT_EQ(AfxFindBinary(&kFirst, kBinary, type), nullptr);
  }
}

TEST(BinaryTest, OfAnotherNumberIsNotFound) {
  EXPECT_EQ(AfxFindBinary(&kFirst, kBinary + 1, L"BINARY"), nullptr);
}

TEST(BinaryTest, OfAnotherModuleIsNotFound) {
  EXPECT_EQ(AfxFindBinary(&kSecond, kBinary, L"BINARY"), nullptr);
  EXPECT_EQ(AfxFindBinary(nullptr, kBinary, L"BINARY"), nullptr);
}

}  // namespace
