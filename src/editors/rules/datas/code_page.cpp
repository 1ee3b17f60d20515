// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/rules/datas/code_page.h"

#include <array>
#include <iconv.h>

namespace kelmar {

namespace {

/// A conversion as long as it lives.
class Converter {
 public:
  explicit Converter(int page)
      : handle_(::iconv_open("UTF-8", ("CP" + std::to_string(page)).c_str())) {}
  ~Converter() {
    if (good()) ::iconv_close(handle_);
  }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;

  bool good() const { return handle_ != reinterpret_cast<iconv_t>(-1); }

  std::string convert(std::string_view bytes) const {
    std::string result;
    std::string copy(bytes);
    char* in = copy.data();
    std::size_t left = copy.size();
    std::array<char, 256> buffer;
    while (left > 0) {
      char* out = buffer.data();
      std::size_t room = buffer.size();
      const std::size_t before = left;
      const bool failed = ::iconv(handle_, &in, &left, &out, &room) == static_cast<std::size_t>(-1);
      result.append(buffer.data(), out);
      if (!failed || left != before || room < buffer.size()) continue;
      result += "\xEF\xBF\xBD"; // the byte means nothing
      ++in;
      --left;
    }
    return result;
  }

 private:
  iconv_t handle_;
};

} // namespace

std::string fromCodePage(int page, std::string_view bytes) {
  const Converter converter(page);
  if (converter.good()) return converter.convert(bytes);
  return page == 1252 ? std::string(bytes.size(), '?') : fromCodePage(1252, bytes);
}

int codePageOfCharset(int charset, int otherwise) {
  switch (charset) {
  case 128:
    return 932;
  case 129:
    return 949;
  case 134:
    return 936;
  case 136:
    return 950;
  case 161:
    return 1253;
  case 162:
    return 1254;
  case 163:
    return 1258;
  case 177:
    return 1255;
  case 178:
    return 1256;
  case 186:
    return 1257;
  case 204:
    return 1251;
  case 222:
    return 874;
  case 238:
    return 1250;
  case 255:
    return 437;
  default:
    return otherwise;
  }
}

} // namespace kelmar
