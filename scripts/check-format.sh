#!/usr/bin/env bash
# Every source file stands as .clang-format wants it.
set -euo pipefail
cd "$(dirname "$0")/.."
git ls-files -z --cached --others --exclude-standard -- '*.h' '*.cpp' | xargs -0 clang-format --dry-run --Werror
