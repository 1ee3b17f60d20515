// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/load_context.h"

#include <cstring>

namespace kelmar {

/// The two tests that a collection applies to the pending error after it loaded a member.
enum class MemberTest {
  Strict,  ///< add only if the slot is empty
  Bitwise, ///< add unless the error number is -1
};

/// Name under which a member appears in the load report.
std::string reportName(xml::Node element);

/// Reads the children `element` of `parent` in document order: `make(node)` builds and loads a
/// member, `add(member)` appends it. Whatever is not added goes into the report as `kind`. A
/// failure of `add` stays pending.
template <class Make, class Add>
void loadMembers(LoadContext& load, xml::Node parent, const char* element, const char* kind,
                 MemberTest test, Make make, Add add) {
  xml::Node next;
  for (xml::Node node = parent.child(element); node; node = next) {
    next = node.next_sibling(element);
    auto member = make(node);
    const bool allowed =
        test == MemberTest::Strict ? !load.pending.isSet() : load.pending.allowsBitwise();
    if (!allowed) {
      load.notKept(kind, reportName(node), node, load.pending.error().text);
    } else {
      try {
        add(std::move(member));
      } catch (const Failure& failure) {
        load.pending.set(failure);
        load.notKept(kind, reportName(node), node, failure.text);
      }
    }
    load.release(node);
  }
}

} // namespace kelmar
