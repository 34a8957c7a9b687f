#pragma once
// The main form over a copy of a bundled definition in a host folder of its own.

#include <gtest/gtest.h>

#include <memory>

#include "TempFolder.h"
#include "workbench/GrammarDeskMain.h"
#include "BuildPaths.h"

namespace orl::test {

class TSynFormFixture : public ::testing::Test {
protected:
  TSynFormFixture() {
    std::filesystem::create_directories(FDir / "syntax");
    std::filesystem::copy_file(orl::test::HostDir() / "syntax" / "C++.gdx", FFile);
    std::filesystem::copy_file(orl::test::HostDir() / "syntax" / "C++.ini",
                               std::filesystem::path(FFile).replace_extension(".ini"));
    FHost.HostFolder = FDir.Path();
    FForm = std::make_unique<TSynForm>(FHost);
  }

  TTempFolder FDir;
  std::filesystem::path FFile = FDir / "syntax" / "C.gdx";
  THostEnvironment FHost;
  std::unique_ptr<TSynForm> FForm;
};

} // namespace orl::test
