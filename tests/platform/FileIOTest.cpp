#include <gtest/gtest.h>
#include <sys/stat.h>

#include "TempFolder.h"
#include "platform/FileIO.h"
#include "platform/OrlError.h"

using namespace orl;

TEST(FileIO, AtomicWriteReplacesAndLeavesNoTemporary) {
  test::TTempFolder dir;
  WriteFileAtomic(dir / "f.txt", "one");
  WriteFileAtomic(dir / "f.txt", "two");
  EXPECT_EQ(ReadFileBytes(dir / "f.txt"), "two");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.Path()), {}), 1);
}

TEST(FileIO, FailedWriteKeepsThePreviousFileAndNamesThePath) {
  if (::geteuid() == 0) GTEST_SKIP() << "root writes into read-only folders";
  test::TTempFolder dir;
  const auto file = dir / "keep.txt";
  WriteFileAtomic(file, "previous");
  ::chmod(dir.Path().c_str(), 0555);
  try {
    WriteFileAtomic(file, "new");
    FAIL() << "write into a read-only folder succeeded";
  } catch (const EFileError& e) {
    EXPECT_NE(std::string(e.what()).find("keep.txt"), std::string::npos);
  }
  ::chmod(dir.Path().c_str(), 0755);
  EXPECT_EQ(ReadFileBytes(file), "previous");
}

TEST(FileIO, FailedRenameLeavesTargetAndNoTemporary) {
  test::TTempFolder dir;
  std::filesystem::create_directory(dir / "target");
  WriteFileAtomic(dir / "target" / "inside", "kept");
  EXPECT_THROW(WriteFileAtomic(dir / "target", "new"), EFileError);
  EXPECT_EQ(ReadFileBytes(dir / "target" / "inside"), "kept");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.Path()), {}), 1);
}

TEST(FileIO, ReadErrorsNameThePath) {
  test::TTempFolder dir;
  EXPECT_THROW(ReadFileBytes(dir / "missing"), EFileError);
  EXPECT_THROW(ReadFileBytes(dir.Path()), EFileError);
  EXPECT_THROW(WriteFileAtomic(dir / "no" / "such" / "folder.txt", "x"), EFileError);
  EXPECT_EQ(ReadFileHead(dir / "missing", 5), "");
}
