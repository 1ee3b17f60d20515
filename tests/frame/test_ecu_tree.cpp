// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/ecu_tree.h"

#include "common/site_parameters.h"
#include "support/temp_folder.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <sys/stat.h>

namespace kelmar {
namespace {

namespace fs = std::filesystem;
using support::TempFolder;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// The tree as lines: two blanks a level, "/" behind a folder.
std::string shown(const EcuTreeNode& node, const std::string& indent = {}) {
  std::string lines;
  for (const EcuTreeNode& child : node.children)
    lines += indent + child.name + (child.isFile ? "\n" : "/\n") + shown(child, indent + "  ");
  return lines;
}

EcuTree read(const TempFolder& folder) {
  return readEcuTree(folder.path().string(), folder.path().string());
}

TEST(EcuTree, FoldersAndFiles_StandInNaturalOrder) {
  const TempFolder folder;
  for (const char* name :
       {"Zebra/a.xml", "alpha/Door 10.xml", "alpha/door 9.XML", "alpha/Door 1.xml",
        "Écho/Famille/x.xml", "Eden/x.xml", "Fox/x.xml", "beside.xml"})
    folder.write(name, "no XML at all");
  const EcuTree tree = read(folder);
  EXPECT_EQ(shown(tree.root), "alpha/\n  Door 1\n  door 9\n  Door 10\n"
                              "Écho/\n  Famille/\n    x\n"
                              "Eden/\n  x\n"
                              "Fox/\n  x\n"
                              "Zebra/\n  a\n"
                              "beside\n");
  EXPECT_EQ(tree.files, 8u);
  EXPECT_THAT(tree.troubles, IsEmpty());
}

TEST(EcuTree, OnlyEcuFiles_AreShown) {
  const TempFolder folder;
  for (const char* name : {"a.xml", "a.xml.bak", "b.bak", ".hidden.xml", ".git/c.xml", "d.txt",
                           ".xml", "e.xml~", "readme"})
    folder.write(name, "");
  ::mkfifo(folder.file("pipe.xml").c_str(), 0600);
  EXPECT_EQ(shown(read(folder).root), "a\n");
}

TEST(EcuTree, AnEmptyFolder_IsShown) {
  const TempFolder folder;
  fs::create_directory(folder.path() / "New vehicle");
  EXPECT_EQ(shown(read(folder).root), "New vehicle/\n");
  EXPECT_EQ(read(folder).files, 0u);
}

TEST(EcuTree, AddressesArePathsWithSlashes_OrderedByteByByte) {
  const TempFolder folder;
  for (const char* name : {"b/1.xml", "B/1.xml", "a 10.xml", "a 9.xml"})
    folder.write(name, "");
  EXPECT_THAT(ecuFilesOf(read(folder)),
              ElementsAre(folder.file("B/1.xml"), folder.file("a 10.xml"), folder.file("a 9.xml"),
                          folder.file("b/1.xml")));
}

TEST(EcuTree, ALinkToAFolderAbove_IsToldAndNotFollowed) {
  const TempFolder folder;
  folder.write("v/f/x.xml", "");
  fs::create_directory_symlink(folder.path(), folder.path() / "v/f/loop");
  fs::create_directory_symlink(".", folder.path() / "v/self");
  const EcuTree tree = read(folder);
  EXPECT_EQ(shown(tree.root), "v/\n  f/\n    x\n");
  ASSERT_EQ(tree.troubles.size(), 2u);
  EXPECT_THAT(tree.troubles, testing::Each(HasSubstr("leads back to a folder above it")));
}

TEST(EcuTree, LinksWithinTheDataRoot_AreFollowed) {
  const TempFolder folder;
  folder.write("vehicles/a/Engine/x.xml", "");
  folder.write("shared/y.xml", "");
  fs::create_directory(folder.path() / "vehicles/b");
  fs::create_directory_symlink("../a/Engine", folder.path() / "vehicles/b/Engine");
  fs::create_directory_symlink("../../shared", folder.path() / "vehicles/b/Shared");
  fs::create_symlink("../../shared/y.xml", folder.path() / "vehicles/b/z.xml");
  fs::create_symlink("gone.xml", folder.path() / "vehicles/b/gone too.xml");
  const EcuTree tree = readEcuTree(folder.file("vehicles"), folder.path().string());
  EXPECT_EQ(shown(tree.root),
            "a/\n  Engine/\n    x\nb/\n  Engine/\n    x\n  Shared/\n    y\n  z\n");
  EXPECT_THAT(tree.troubles, IsEmpty());
}

TEST(EcuTree, LinksOutOfTheDataRoot_AreToldAndNotFollowed) {
  const TempFolder outside;
  outside.write("secret.xml", "");
  const TempFolder folder;
  fs::create_directory_symlink(outside.path(), folder.path() / "out");
  fs::create_symlink(outside.path() / "secret.xml", folder.path() / "file.xml");
  const EcuTree tree = read(folder);
  EXPECT_EQ(shown(tree.root), "");
  EXPECT_THAT(tree.troubles, testing::Each(HasSubstr("the link leaves the data root")));
  EXPECT_EQ(tree.troubles.size(), 2u);
}

TEST(EcuTree, FoldersThatNameOneAnother_StayBounded) {
  const TempFolder folder;
  const int count = 6;
  for (int i = 0; i < count; ++i) {
    const std::string own = "f" + std::to_string(i);
    folder.write(own + "/x.xml", "");
    for (int k = 0; k < count; ++k)
      if (k != i)
        fs::create_directory_symlink("../f" + std::to_string(k),
                                     folder.path() / own / ("to f" + std::to_string(k)));
  }
  const EcuTree tree = read(folder);
  EXPECT_GT(tree.files, 6u);
  EXPECT_LT(tree.files, 2000u);
  EXPECT_THAT(tree.troubles, testing::Contains(HasSubstr("too deep")));
}

TEST(EcuTree, VeryDeepFolders_AreToldAndNotFollowed) {
  const TempFolder folder;
  fs::path deep;
  for (int i = 0; i < 70; ++i)
    deep /= "d";
  folder.write((deep / "x.xml").string(), "");
  const EcuTree tree = read(folder);
  EXPECT_EQ(tree.files, 0u);
  ASSERT_EQ(tree.troubles.size(), 1u);
  EXPECT_THAT(tree.troubles[0], HasSubstr("too deep"));
}

TEST(EcuTree, ANameThatIsNoText_IsToldAndNotShown) {
  const TempFolder folder;
  folder.write("good.xml", "");
  folder.write("bad \xFF.xml", "");
  const EcuTree tree = read(folder);
  EXPECT_EQ(shown(tree.root), "good\n");
  ASSERT_EQ(tree.troubles.size(), 1u);
  EXPECT_THAT(tree.troubles[0], HasSubstr("not UTF-8"));
}

TEST(EcuTree, AFolderThatIsNotThere_IsATrouble) {
  const TempFolder folder;
  const EcuTree tree = readEcuTree(folder.file("none"), folder.path().string());
  EXPECT_EQ(tree.files, 0u);
  EXPECT_THAT(tree.troubles, ElementsAre(folder.file("none") + ": No such file or directory"));
}

TEST(EcuTree, FilesOfASite_CountOnceOverItsDataSets) {
  const TempFolder folder;
  folder.write("vehicles/a/1.xml", "");
  folder.write("vehicles/b/2.xml", "");
  SiteParameters site;
  site.root = folder.path().string();
  site.dataSets = {{"b", folder.file("vehicles/b")}, {"all", folder.file("vehicles")}};
  EXPECT_THAT(ecuFilesOf(site),
              ElementsAre(folder.file("vehicles/a/1.xml"), folder.file("vehicles/b/2.xml")));
}

TEST(EcuTree, FiveThousandFiles_AreRead) {
  const TempFolder folder;
  for (int vehicle = 0; vehicle < 50; ++vehicle)
    for (int file = 0; file < 100; ++file)
      folder.write(
          "Vehicle " + std::to_string(vehicle) + "/Family/" + std::to_string(file) + ".xml", "");
  EXPECT_EQ(read(folder).files, 5000u);
}

TEST(EcuTreeOrder, NumbersCountByTheirValue) {
  EXPECT_LT(compareNaturally("a2", "a10"), 0);
  EXPECT_GT(compareNaturally("a10b", "a10a"), 0);
  EXPECT_EQ(compareNaturally("a010", "a10"), 0);
  EXPECT_EQ(compareNaturally("a0", "a00"), 0);
  EXPECT_LT(compareNaturally("a", "a1"), 0);
  EXPECT_LT(compareNaturally("", "a"), 0);
  EXPECT_LT(compareNaturally("99999999999999999999999", "100000000000000000000000"), 0);
}

TEST(EcuTreeOrder, SearchForm_KnowsNeitherCaseNorAccents) {
  EXPECT_EQ(searchForm("ABC xyz 12"), "abc xyz 12");
  EXPECT_EQ(searchForm("Célestine ÀÉÎõü"), "celestine aeiou");
  EXPECT_EQ(searchForm("Straße"), searchForm("STRAßE"));
  EXPECT_EQ(searchForm("ΑΒΓ"), "αβγ");
}

} // namespace
} // namespace kelmar
