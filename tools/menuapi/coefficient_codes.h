// The codes of a block's AC coefficients: ISO/IEC 13818-2, tables B.14 and B.15.
#pragma once

#include <cstdint>

#include "menuapi/code_table.h"

namespace menuapi {

// A run of zero coefficients, then one of this level. The bit after the code is its sign.
struct RunLevel {
  std::int16_t run = 0;
  std::int16_t level = 0;  // positive, or one of the constants below

  static constexpr std::int16_t kEndOfBlock = 0;
  static constexpr std::int16_t kEscape = -1;  // run and level follow as uncoded numbers
};

enum class CoefficientTable { Zero, One };

[[nodiscard]] const CodeTable<RunLevel>& CoefficientCodes(CoefficientTable table);

// The rows that are only in this table, and the rows that both tables share.
[[nodiscard]] CodeTable<RunLevel>::Rows OwnCoefficientRows(CoefficientTable table);
[[nodiscard]] CodeTable<RunLevel>::Rows SharedCoefficientRows();

}  // namespace menuapi
