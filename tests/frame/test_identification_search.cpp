// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/identification_search.h"

#include "frame/ecu_file_text.h"
#include "support/temp_folder.h"

#include <gmock/gmock.h>

#include <map>

namespace kelmar {
namespace {

using support::EcuFileText;
using support::TempFolder;
using testing::ElementsAre;

const Identification wanted{122, 1, 4, "SUP", "0100", "0001"};

const std::string can = R"(<CAN Multipoint="1"><SendId/></CAN>)";
const std::string canFd = R"(<CAN CANFDTxMaxDataLength="64"><SendId/></CAN>)";
const std::string messaging = R"(<CAN Multipoint="1"/>)";
const std::string ip = "<IP/>";
const std::string fastMono = R"(<K><KWP Multipoint="0"><FastInit/></KWP></K>)";
const std::string fastMulti = R"(<K><KWP Multipoint="1"><FastInit/></KWP></K>)";
const std::string slow1 = R"(<K><KWP Multipoint="0"><ISO8/></KWP></K>)";
const std::string slow2 = R"(<K><KWP Multipoint="1"><ISO8/></KWP></K>)";
const std::string iso8 = "<K><ISO8/></K>";

/// "4 SUP 0100 0001": diag version, supplier, software, version.
std::string autoIdent(const std::string& values) {
  std::string part[4];
  std::size_t which = 0;
  for (const char c : values)
    if (c == ' ')
      ++which;
    else
      part[which] += c;
  return "<AutoIdent DiagVersion=\"" + part[0] + "\" Supplier=\"" + part[1] + "\" Soft=\"" +
         part[2] + "\" Version=\"" + part[3] + "\"/>";
}

/// A tree of small ECU files, described by what identifies them.
class Tree {
 public:
  void add(const std::string& name, const std::vector<std::string>& identifications,
           const std::string& protocol = can, int function = 122) {
    EcuFileText file;
    file.function = "<Function Name=\"F\" Address=\"" + std::to_string(function) + "\"/>";
    file.protocol = protocol;
    file.autoIdents.clear();
    for (const std::string& values : identifications)
      file.autoIdents += autoIdent(values);
    addText(name, file.text());
  }
  void addText(const std::string& name, const std::string& text) {
    files_.insert(files_.begin(), folder_.write(name, text)); // not in the order of the paths
  }
  /// "CODE NAME", or "none".
  std::string find(const Identification& identification = wanted) const {
    const IdentificationMatch match = findByIdentification(files_, identification);
    if (!match.found()) return match.code == -1 ? "none" : "a code without an address";
    return std::to_string(match.code) + " " +
           match.address.substr(folder_.path().string().size() + 1);
  }
  const std::vector<std::string>& files() const { return files_; }

 private:
  TempFolder folder_;
  std::vector<std::string> files_;
};

// A second file of the function, so that no file is the only one; nothing identifies by it.
const std::vector<std::string> stranger = {"4 OTHER 0100 0001"};

TEST(IdentificationCode, EachRowOfTheTable) {
  const std::map<std::string, std::string> rows = {
      {"4 SUP 0100 0001", "0 ecu.xml"}, // all the same
      {"4 SUP 0100 0002", "2 ecu.xml"}, // only the version differs
      {"4 SUP 0200 0001", "3 ecu.xml"}, // the software differs
      {"4 SUP 0200 0002", "3 ecu.xml"}, // ... and with it the version
      {"5 SUP 0100 0001", "4 ecu.xml"}, // only the diag version differs
      {"5 SUP 0100 0002", "5 ecu.xml"}, // diag version and version differ
      {"5 SUP 0200 0001", "6 ecu.xml"}, // diag version and software differ
      {"5 SUP 0200 0002", "6 ecu.xml"}, // only the supplier is the same
      {"4 OTHER 0100 0001", "none"},    // another supplier
  };
  for (const auto& [identification, match] : rows) {
    Tree tree;
    tree.add("ecu.xml", {identification});
    tree.add("z.xml", stranger);
    EXPECT_EQ(tree.find(), match) << identification;
  }
}

TEST(IdentificationCode, ADifferentProtocol_AddsTen) {
  const std::map<std::string, std::string> rows = {
      {"4 SUP 0100 0001", "10 ecu.xml"}, {"4 SUP 0100 0002", "12 ecu.xml"},
      {"4 SUP 0200 0001", "13 ecu.xml"}, {"5 SUP 0100 0001", "14 ecu.xml"},
      {"5 SUP 0100 0002", "15 ecu.xml"}, {"5 SUP 0200 0002", "16 ecu.xml"},
      {"4 OTHER 0100 0001", "none"},
  };
  for (const auto& [identification, match] : rows) {
    Tree tree;
    tree.add("ecu.xml", {identification}, slow1);
    tree.add("z.xml", stranger);
    EXPECT_EQ(tree.find(), match) << identification;
  }
}

TEST(IdentificationCode, TheOnlyFileOfTheFunction_IsCodeOneUnlessExact) {
  for (const std::string identification :
       {"4 SUP 0100 0002", "4 SUP 0200 0001", "5 SUP 0100 0001", "5 SUP 0200 0002", "9 X Y Z"}) {
    Tree tree;
    tree.add("ecu.xml", {identification});
    tree.add("other function.xml", {"4 SUP 0100 0001"}, can, 1);
    EXPECT_EQ(tree.find(), "1 ecu.xml") << identification;
  }
  Tree exact;
  exact.add("ecu.xml", {"4 SUP 0100 0001"});
  EXPECT_EQ(exact.find(), "0 ecu.xml");
  Tree without;
  without.add("ecu.xml", {});
  EXPECT_EQ(without.find(), "1 ecu.xml");
}

TEST(IdentificationCode, TheOnlyFileOfTheFunctionWithAnotherProtocol_IsEleven) {
  Tree tree;
  tree.add("ecu.xml", {"4 SUP 0100 0002"}, ip);
  EXPECT_EQ(tree.find(), "11 ecu.xml");
  Tree exact;
  exact.add("ecu.xml", {"4 SUP 0100 0001"}, ip);
  EXPECT_EQ(exact.find(), "10 ecu.xml");
}

TEST(IdentificationCode, FilesOfAnyProtocol_CountForTheOnlyOne) {
  Tree tree;
  tree.add("can.xml", stranger);
  tree.add("ip.xml", stranger, ip);
  EXPECT_EQ(tree.find(), "none");
}

TEST(IdentificationSearch, OfSeveralAutoIdents_TheBestCounts) {
  Tree tree;
  tree.add("ecu.xml", {"9 X Y Z", "5 SUP 0200 0002", "4 SUP 0100 0009", "5 SUP 0100 0001"});
  tree.add("z.xml", stranger);
  EXPECT_EQ(tree.find(), "2 ecu.xml");
}

TEST(IdentificationSearch, OfSeveralFiles_TheLowestCodeWins) {
  Tree tree;
  tree.add("a.xml", {"5 SUP 0200 0002"});
  tree.add("b.xml", {"4 SUP 0100 0001"}, slow2);
  tree.add("c.xml", {"5 SUP 0100 0001"});
  tree.add("d.xml", {"4 SUP 0200 0001"});
  EXPECT_EQ(tree.find(), "3 d.xml");
  tree.add("e.xml", {"4 SUP 0100 0002"});
  EXPECT_EQ(tree.find(), "2 e.xml");
  tree.add("f.xml", {"4 SUP 0100 0001"});
  EXPECT_EQ(tree.find(), "0 f.xml");
}

TEST(IdentificationSearch, OfEqualFiles_TheFirstByPathWins) {
  Tree tree;
  for (const char* name : {"b/1.xml", "a/10.xml", "a/2.xml", "B/9.xml"})
    tree.add(name, {"4 SUP 0100 0002"});
  EXPECT_EQ(tree.find(), "2 B/9.xml"); // byte by byte: capitals first, and "10" before "2"
  Tree exact;
  for (const char* name : {"b/1.xml", "a/10.xml", "a/2.xml"})
    exact.add(name, {"4 SUP 0100 0001"});
  EXPECT_EQ(exact.find(), "0 a/10.xml");
}

TEST(IdentificationSearch, AFileThatIsListedTwice_IsStillTheOnlyOne) {
  Tree tree;
  tree.add("ecu.xml", stranger);
  std::vector<std::string> twice = {tree.files()[0], tree.files()[0]};
  EXPECT_EQ(findByIdentification(twice, wanted).code, 1);
}

TEST(IdentificationSearch, CaseOfTheTexts_DoesNotMatter) {
  Tree tree;
  tree.add("ecu.xml", {"4 sup 00aB éa"});
  tree.add("z.xml", stranger);
  EXPECT_EQ(tree.find({122, 1, 4, "SUP", "00AB", "ÉA"}), "0 ecu.xml");
}

TEST(IdentificationSearch, WhatIsLeftEmpty_IsComparedLikeAnyText) {
  Tree tree;
  tree.add("ecu.xml", {"4 SUP 0100 0001"});
  tree.add("z.xml", stranger);
  EXPECT_EQ(tree.find({122, 1, 4, "SUP", "0100", ""}), "2 ecu.xml");
  EXPECT_EQ(tree.find({122, 1, 4, "", "0100", "0001"}), "none");
}

TEST(IdentificationSearch, AnEmptyTree_MatchesNothing) {
  EXPECT_EQ(Tree{}.find(), "none");
}

TEST(IdentificationSearch, BrokenFiles_CountAsIfTheyWereNotThere) {
  Tree tree;
  tree.add("ecu.xml", stranger);
  tree.addText("a/empty.xml", "");
  tree.addText("a/other.xml", "<site/>");
  tree.addText("a/cut.xml", EcuFileText{}.text().substr(0, 200));
  tree.addText("a/binary.xml", std::string("\0\x01\xFF\xFE", 4));
  EXPECT_EQ(tree.find(), "1 ecu.xml");
  std::vector<std::string> files = tree.files();
  files.push_back(files[0] + "/gone.xml");
  EXPECT_EQ(findByIdentification(files, wanted).code, 1);
}

TEST(IdentificationSearch, AFileBrokenBehindItsAutoIdents_IsFound) {
  Tree tree;
  EcuFileText file;
  file.rest = "<Datas><<<";
  tree.addText("ecu.xml", file.text());
  EXPECT_EQ(tree.find(), "0 ecu.xml");
}

TEST(IdentificationSearch, Progress_IsToldAfterEachFile) {
  Tree tree;
  for (int i = 0; i < 3; ++i)
    tree.add(std::to_string(i) + ".xml", stranger);
  std::vector<std::pair<std::size_t, std::size_t>> told;
  findByIdentification(tree.files(), wanted, [&](std::size_t done, std::size_t total) {
    told.emplace_back(done, total);
    return true;
  });
  EXPECT_THAT(told, ElementsAre(std::pair(1u, 3u), std::pair(2u, 3u), std::pair(3u, 3u)));
}

TEST(IdentificationSearch, ACancelledSearch_GivesNoMatch) {
  Tree tree;
  for (int i = 0; i < 3; ++i)
    tree.add(std::to_string(i) + ".xml", {"4 SUP 0100 0002"});
  std::size_t seen = 0;
  const IdentificationMatch match =
      findByIdentification(tree.files(), wanted, [&](std::size_t done, std::size_t) {
        seen = done;
        return done < 2;
      });
  EXPECT_TRUE(match.cancelled);
  EXPECT_FALSE(match.found());
  EXPECT_EQ(match.code, -1);
  EXPECT_EQ(seen, 2u);
}

TEST(IdentificationSearch, AnExactMatch_EndsTheSearch) {
  Tree tree;
  for (int i = 0; i < 5; ++i)
    tree.add(std::to_string(i) + ".xml", {"4 SUP 0100 0001"});
  std::size_t seen = 0;
  const auto match = findByIdentification(tree.files(), wanted, [&](std::size_t done, std::size_t) {
    seen = done;
    return true;
  });
  EXPECT_EQ(match.code, 0);
  EXPECT_EQ(seen, 1u);
}

TEST(IdentificationSearch, ProtocolNumbers_FitTheirSections) {
  const std::vector<std::string> sections = {can,       canFd, messaging, ip,  fastMono,
                                             fastMulti, slow1, slow2,     iso8};
  // For each number of the search a line of the sections above, "x" where it fits.
  const std::map<std::int32_t, std::string> table = {
      {0, "xxxxxxxxx"},  {1, "xx......."},  {2, "....x...x"},   {3, ".....x..."}, {4, "......x.."},
      {5, ".......x."},  {6, "........x"},  {7, "..x......"},   {8, ".x.x....."}, {9, "...x....."},
      {10, "........."}, {-1, "........."}, {122, "........."},
  };
  for (const auto& [number, row] : table) {
    std::string found;
    for (const std::string& section : sections) {
      Tree tree;
      tree.add("ecu.xml", {"4 SUP 0100 0001"}, section);
      Identification identification = wanted;
      identification.protocol = number;
      found += tree.find(identification) == "0 ecu.xml" ? 'x' : '.';
    }
    EXPECT_EQ(found, row) << number;
  }
}

} // namespace
} // namespace kelmar
