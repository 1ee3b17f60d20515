// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/rules/requests/reply_template.h"

#include <algorithm>

namespace kelmar {

namespace {

constexpr std::int32_t canDiagnosis = 3; // initMode

} // namespace

std::vector<std::uint8_t> expectedReplyHead(const std::vector<std::uint8_t>& request,
                                            std::int32_t initMode) {
  if (request.empty()) return {};
  const std::uint8_t service = request.front();
  if (service == 0x7F || service >= 0xBF) return {};
  std::size_t length = 1; // bytes of the request that the answer repeats
  switch (service) {
  case 0x10:
    length = initMode == canDiagnosis ? 2 : 1;
    break;
  case 0x21:
  case 0x22:
    length = request.size();
    break;
  case 0x2E:
    length = 3;
    break;
  case 0x11:
  case 0x30:
  case 0x31:
  case 0x32:
  case 0x3B:
    length = 2;
    break;
  default:
    break;
  }
  if (request.size() < length) return {};
  std::vector<std::uint8_t> head(request.begin(),
                                 request.begin() + static_cast<std::ptrdiff_t>(length));
  head.front() = static_cast<std::uint8_t>(service + 0x40);
  return head;
}

bool NormalizeReplyTemplate(RequestItem& request, const TargetItem& target) {
  if (!request.RequestBytes || request.RequestBytes->Length() == 0) return false;
  if (!request.ReplyBytes) {
    request.ReplyBytes = std::make_shared<FrameBuffer>();
    request.ReplyBytes->setLowerBound(request.RequestBytes->LowerBound());
  }
  const std::vector<std::uint8_t> head = expectedReplyHead(
      request.RequestBytes->bytes(), target.Parametres() ? target.Parametres()->initMode : 0);
  if (head.empty()) return false;
  FrameBuffer& reply = *request.ReplyBytes;
  const int length = static_cast<int>(head.size());
  if (reply.Length() < length) {
    reply.setLength(length);
  } else if (std::equal(head.begin(), head.end(), reply.bytes().begin())) {
    return false;
  }
  FrameBuffer::View first = reply.Range(reply.LowerBound(), length);
  for (int offset = 0; offset < length; ++offset)
    first.setByteAt(offset, head[static_cast<std::size_t>(offset)]);
  return true;
}

} // namespace kelmar
