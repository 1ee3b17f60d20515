// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/site_parameters.h"

#include "base/failure.h"
#include "support/temp_folder.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace kelmar {
namespace {

using support::TempFolder;
using testing::ElementsAre;
using testing::HasSubstr;

std::string siteOf(const std::string& inside) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<site name=\"Demo\" key=\"DEMO\">\n" +
         inside + "\n</site>\n";
}

const std::string oneSet = "<dataSets><dataSet label=\"All\" folder=\"vehicles\"/></dataSets>";

SiteParameters read(const TempFolder& folder, const std::string& inside) {
  folder.write("parameters.xml", siteOf(inside));
  return readSiteParameters(folder.path().string());
}

std::string refusalOf(const TempFolder& folder, const std::string& inside) {
  try {
    read(folder, inside);
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.number, 1);
    EXPECT_EQ(failure.source, "readSiteParameters");
    return failure.text;
  }
  return "read without complaint";
}

TEST(SiteParameters, AllThatASiteMaySay_IsRead) {
  const TempFolder folder;
  const SiteParameters site = read(folder, R"(
    <description xml:lang="en"> Three vehicles </description>
    <description xml:lang="fr">Trois véhicules</description>
    <xmlEncoding>windows-1252</xmlEncoding>
    <xmlStyleSheet>http://server.example/preview.xsl</xmlStyleSheet>
    <addressingFile>shared/Addresses.xml</addressingFile>
    <projectsFile>projects.xml</projectsFile>
    <dataSets>
      <dataSet label="All" folder="vehicles"/>
      <dataSet folder="vehicles/New one"/>
    </dataSets>
    <urlRef ref="Tools"><url>http://a.example</url>
      <downloads code="Data"><download code="Scripts"><filesList>list.xml</filesList></download>
      <download code="Other"><url>http://b.example</url><filesList>o.xml</filesList></download>
      </downloads></urlRef>)");
  EXPECT_EQ(site.name, "Demo");
  EXPECT_EQ(site.key, "DEMO");
  EXPECT_EQ(site.root, folder.path().string());
  EXPECT_EQ(site.file, folder.file("parameters.xml"));
  EXPECT_EQ(site.description("en"), "Three vehicles");
  EXPECT_EQ(site.description("fr"), "Trois véhicules");
  EXPECT_EQ(site.description("de"), "Three vehicles");
  EXPECT_EQ(site.xmlEncoding, "windows-1252");
  EXPECT_EQ(site.xmlStyleSheet, "http://server.example/preview.xsl");
  EXPECT_EQ(site.addressingFile, folder.file("shared/Addresses.xml"));
  EXPECT_EQ(site.projectsFile, folder.file("projects.xml"));
  ASSERT_EQ(site.dataSets.size(), 2u);
  EXPECT_EQ(site.dataSets[0].label, "All");
  EXPECT_EQ(site.dataSets[0].folder, folder.file("vehicles"));
  EXPECT_EQ(site.dataSets[1].label, "New one");
  EXPECT_EQ(site.dataSets[1].folder, folder.file("vehicles/New one"));
  ASSERT_EQ(site.downloads.size(), 2u);
  EXPECT_EQ(site.downloads[0].application, "Tools");
  EXPECT_EQ(site.downloads[0].code, "Data");
  EXPECT_EQ(site.downloads[0].name, "Scripts");
  EXPECT_EQ(site.downloads[0].url, "http://a.example");
  EXPECT_EQ(site.downloads[0].filesList, "list.xml");
  EXPECT_EQ(site.downloads[1].url, "http://b.example");
}

TEST(SiteParameters, TheLeastThatASiteMaySay_LeavesTheRestOpen) {
  const TempFolder folder;
  const SiteParameters site = read(folder, oneSet);
  EXPECT_FALSE(site.xmlEncoding);
  EXPECT_FALSE(site.xmlStyleSheet);
  EXPECT_EQ(site.description("en"), "");
  EXPECT_EQ(site.addressingFile, folder.file("GenericAddressing.xml"));
  EXPECT_EQ(site.projectsFile, "");
  EXPECT_TRUE(site.downloads.empty());
}

TEST(SiteParameters, AnEmptyStyleSheet_SuppressesTheInstruction) {
  const TempFolder folder;
  EXPECT_EQ(read(folder, "<xmlStyleSheet/>" + oneSet).xmlStyleSheet, "");
  EXPECT_EQ(read(folder, "<xmlStyleSheet> \n </xmlStyleSheet>" + oneSet).xmlStyleSheet, "");
}

TEST(SiteParameters, AnEmptyEncoding_SaysNothing) {
  const TempFolder folder;
  EXPECT_FALSE(read(folder, "<xmlEncoding/>" + oneSet).xmlEncoding);
}

TEST(SiteParameters, AnUnknownEncoding_IsRefusedWithItsLine) {
  const TempFolder folder;
  EXPECT_EQ(refusalOf(folder, oneSet + "\n<xmlEncoding>EBCDIC</xmlEncoding>"),
            folder.file("parameters.xml") + ", line 4: xmlEncoding: unknown encoding \"EBCDIC\"");
}

TEST(SiteParameters, ADescriptionWithoutLanguage_FitsAny) {
  const TempFolder folder;
  const SiteParameters site =
      read(folder,
           "<description>Any</description><description xml:lang=\"en\">E</description>" + oneSet);
  EXPECT_EQ(site.description("de"), "Any");
  EXPECT_EQ(site.description("en"), "E");
}

TEST(SiteParameters, APathThatIsNotRelative_IsRefusedWithItsLine) {
  const TempFolder folder;
  for (const std::string path : {"/etc", "C:\\data", "C:data", "http://server.example/a",
                                 "file:///etc", "\\\\server\\share"}) {
    EXPECT_EQ(refusalOf(folder, "<dataSets>\n<dataSet folder=\"" + path + "\"/></dataSets>"),
              folder.file("parameters.xml") + ", line 4: the folder of a data set: \"" + path +
                  "\" is not relative to the data root");
    EXPECT_THAT(refusalOf(folder, "<projectsFile>" + path + "</projectsFile>" + oneSet),
                HasSubstr("projectsFile: \"" + path + "\" is not relative"));
  }
}

TEST(SiteParameters, APathThatClimbs_IsRefused) {
  const TempFolder folder;
  for (const std::string path : {"..", "../other", "a/../../b", "a/..", "a\\..\\..\\b"})
    EXPECT_THAT(refusalOf(folder, "<addressingFile>" + path + "</addressingFile>" + oneSet),
                HasSubstr("line 3: addressingFile: \"" + path + "\" leaves the data root"));
}

TEST(SiteParameters, ALinkOutOfTheDataRoot_IsRefused) {
  const TempFolder outside;
  const TempFolder folder;
  std::filesystem::create_directory_symlink(outside.path(), folder.path() / "vehicles");
  EXPECT_THAT(refusalOf(folder, oneSet), HasSubstr("leaves the data root by a symbolic link"));
}

TEST(SiteParameters, ALinkWithinTheDataRoot_IsFollowed) {
  const TempFolder folder;
  std::filesystem::create_directory(folder.path() / "real");
  std::filesystem::create_directory_symlink("real", folder.path() / "vehicles");
  EXPECT_EQ(read(folder, oneSet).dataSets.at(0).folder, folder.file("vehicles"));
}

TEST(SiteParameters, ALinkThatNeverEnds_IsRefused) {
  const TempFolder folder;
  std::filesystem::create_directory_symlink("vehicles", folder.path() / "vehicles");
  EXPECT_THAT(refusalOf(folder, oneSet), HasSubstr("\"vehicles\" cannot be followed"));
}

TEST(SiteParameters, ADataRootThatIsItselfALink_Works) {
  const TempFolder folder;
  folder.write("real/parameters.xml", siteOf(oneSet));
  std::filesystem::create_directory_symlink("real", folder.path() / "link");
  EXPECT_EQ(readSiteParameters(folder.file("link")).dataSets.at(0).folder,
            folder.file("link/vehicles"));
}

TEST(SiteParameters, TheDataRootItself_MayBeTheDataSet) {
  const TempFolder folder;
  EXPECT_EQ(read(folder, "<dataSets><dataSet folder=\".\" label=\"x\"/></dataSets>")
                .dataSets.at(0)
                .folder,
            folder.path().string());
}

TEST(SiteParameters, BackslashesInPaths_AreSeparators) {
  const TempFolder folder;
  EXPECT_EQ(read(folder, "<dataSets><dataSet folder=\"a\\b\\\"/></dataSets>").dataSets.at(0).folder,
            folder.file("a/b"));
}

TEST(SiteParameters, ASiteWithoutDataSets_IsRefused) {
  const TempFolder folder;
  EXPECT_THAT(refusalOf(folder, "\n<dataSets/>"), HasSubstr("line 4: the site names no data set"));
  EXPECT_THAT(refusalOf(folder, ""), HasSubstr("line 2: the site names no data set"));
  EXPECT_THAT(refusalOf(folder, "<dataSets><dataSet label=\"a\"/></dataSets>"),
              HasSubstr("the folder of a data set is empty"));
}

TEST(SiteParameters, AFileThatIsNone_IsRefusedByName) {
  const TempFolder folder;
  const auto refusal = [&](const std::string& root, const std::string& file) -> std::string {
    try {
      readSiteParameters(root, file);
    } catch (const Failure& failure) {
      return failure.text;
    }
    return "read without complaint";
  };
  EXPECT_EQ(refusal(folder.path().string(), "parameters.xml"),
            folder.file("parameters.xml") + ": there is no such file");
  EXPECT_EQ(refusal(folder.file("nowhere"), "parameters.xml"),
            folder.file("nowhere") + ": there is no such folder");
  EXPECT_EQ(refusal("", "parameters.xml"), "No data root is set, so there is no site");
  EXPECT_EQ(refusal("http://server.example/data", "parameters.xml"),
            "http://server.example/data: a site is a folder of this machine");
  EXPECT_THAT(refusal(folder.path().string(), "../parameters.xml"),
              HasSubstr("leaves the data root"));
  EXPECT_THAT(refusal(folder.path().string(), ""), HasSubstr("the parameter file is empty"));
  folder.write("parameters.xml", "<site>\n<dataSets></site>");
  EXPECT_THAT(refusal(folder.path().string(), "parameters.xml"),
              testing::AllOf(HasSubstr(folder.file("parameters.xml") + ": "), HasSubstr("line 2")));
  folder.write("parameters.xml", "<!-- c -->\n<xml/>");
  EXPECT_EQ(refusal(folder.path().string(), "parameters.xml"),
            folder.file("parameters.xml") + ", line 2: the root is \"xml\", not \"site\"");
}

TEST(SiteParameters, AFileAddressAndASharedParameterFile_AreTaken) {
  const TempFolder folder;
  folder.write("my site/parameters.xml",
               "<parameter><other/><site name=\"Part\">" + oneSet + "</site></parameter>");
  const SiteParameters site =
      readSiteParameters("file://" + folder.path().string() + "/my%20site/");
  EXPECT_EQ(site.name, "Part");
  EXPECT_EQ(site.root, folder.file("my site"));
}

TEST(SiteParameters, TheBundledSite_IsRead) {
  const SiteParameters site = readSiteParameters(KELMAR_SITE);
  ASSERT_FALSE(site.dataSets.empty());
  for (const DataSet& set : site.dataSets)
    EXPECT_TRUE(std::filesystem::is_directory(set.folder)) << set.folder;
  EXPECT_TRUE(std::filesystem::is_regular_file(site.addressingFile)) << site.addressingFile;
  EXPECT_NE(site.description("fr"), site.description("en"));
}

} // namespace
} // namespace kelmar
