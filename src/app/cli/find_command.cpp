// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/cli/commands.h"
#include "app/cli/one_line.h"
#include "common/site_parameters.h"
#include "frame/rules/ecu_tree.h"
#include "frame/rules/selector_match_text.h"
#include "language/multi_lang.h"
#include "platform/site_settings.h"

namespace kelmar::cli {

int findEcu(const CommandLine& line, const Messages& messages, Output& out) {
  platform::SiteStart start;
  start.site = line.site;
  const std::string root = platform::SiteSettings(start).DataRoot();
  if (root.empty())
    throw Failure(1, "", "There is no site: give one by --site, or see docs/site.md");
  const SiteParameters site = readSiteParameters(root);
  for (const DataSet& set : site.dataSets)
    for (const std::string& trouble : readEcuTree(set.folder, site.root).troubles)
      messages.note(root, trouble);
  const IdentificationMatch match = findByIdentification(ecuFilesOf(site), line.identification);
  const CMultiLangEx english;
  const std::string text = matchText(english, match.code, match.address);
  if (!match.found()) {
    messages.note(root, text);
    return failed;
  }
  out << std::to_string(match.code) << '\t' << oneLine(match.address) << '\t' << oneLine(text)
      << '\n';
  return done;
}

} // namespace kelmar::cli
