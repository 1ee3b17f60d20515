// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/cli/commands.h"
#include "app/cli/one_line.h"
#include "app/cli/session.h"
#include "common/site_parameters.h"
#include "frame/rules/ecu_tree.h"
#include "frame/rules/identification_search.h"
#include "frame/rules/selector_match_text.h"
#include "language/multi_lang.h"
#include "platform/site_settings.h"

namespace kelmar::cli {

namespace {

int printMatch(const SiteParameters& site, const Identification& wanted, bool withNotes,
               Output& output) {
  if (withNotes) {
    for (const DataSet& set : site.dataSets)
      for (const std::string& trouble : readEcuTree(set.folder, site.root).troubles)
        complain(site.root + ": note: " + trouble);
  }
  const IdentificationMatch match = findByIdentification(ecuFilesOf(site), wanted);
  const CMultiLangEx english;
  const std::string text = matchText(english, match.code, match.address);
  if (!match.found()) {
    if (withNotes) complain(site.root + ": note: " + text);
    return failed;
  }
  output << std::to_string(match.code) << "\t" << oneLine(match.address) << "\t" << text << "\n";
  return done;
}

} // namespace

int runFind(const Arguments& arguments, Output& output) {
  if (!arguments.has("--function")) throw WrongUse("option --function is missing");
  Identification wanted;
  wanted.function = arguments.number("--function", 0);
  wanted.protocol = arguments.number("--protocol", 0);
  wanted.diagVersion = arguments.number("--diag", 0);
  wanted.supplier = arguments.value("--supplier").value_or("");
  wanted.soft = arguments.value("--soft").value_or("");
  wanted.version = arguments.value("--version").value_or("");
  const std::string root = siteOf(arguments).DataRoot();
  if (root.empty()) throw Failure(1, "", "There is no site, --site names one");
  try {
    return printMatch(readSiteParameters(root), wanted, arguments.has("-v"), output);
  } catch (const Failure& failure) {
    complain(failureLine(root, failure));
    return failed;
  }
}

} // namespace kelmar::cli
