#!/usr/bin/env bash
# Fails, naming the files, when clang-format (the repository's .clang-format) would change
# any tracked header or source.
set -euo pipefail
cd "$(dirname "$0")/.."
command -v clang-format >/dev/null || { echo "clang-format is not installed" >&2; exit 1; }
unformatted=()
while IFS= read -r -d '' file; do
  clang-format --dry-run --Werror "$file" >/dev/null 2>&1 || unformatted+=("$file")
done < <(git ls-files -z -- '*.h' '*.cpp')
if [ ${#unformatted[@]} -gt 0 ]; then
  echo "clang-format would change ${#unformatted[@]} file(s); run clang-format -i on:"
  printf '  %s\n' "${unformatted[@]}"
  exit 1
fi
echo "format: all tracked sources as clang-format writes them"
