#!/usr/bin/env bash
# check-text.sh [SRC]: what is typed or read from files is shown as plain text. The application makes every label and
# every tool tip so (Applicazione.cpp); this finds what would go round it: a label with a format of its own, markup in
# a form, the toolkit's boxes and rich-text controls, an application object of another class.
set -euo pipefail
cd "${1:-$(dirname "$0")/../src}"
failed=0
report() { # WHAT, then what grep found
  if [ -n "$2" ]; then
    echo "$2" | sed "s|\$|   <- $1|"
    failed=1
  fi
}
report "a label that is not plain text" "$(grep -rnE 'textFormat' --include='*.ui' . | grep -v 'Qt::PlainText' || true)"
report "markup in a form" "$(grep -rnE '&lt;(html|b|i|a|img|p|br|font|span)\b' --include='*.ui' . || true)"
report "rich text" "$(grep -rnE \
  'Qt::(RichText|AutoText|MarkdownText)|set(Html|Markdown)|insertHtml|QStaticText|QTextDocument|QText(Edit|Browser)|convertFromPlainText' \
  --include='*.cpp' --include='*.h' --include='*.ui' . | grep -vE '^\./common/frmAiuto\.' || true)"
report "a box that Dialoghi does not know" "$(grep -rnE 'QMessageBox|QInputDialog|QErrorMessage|QWhatsThis' \
  --include='*.cpp' --include='*.h' . || true)"
report "an application object other than Applicazione" "$(grep -rnE '\bQApplication [a-z]\w*\(' --include='*.cpp' . || true)"
exit "$failed"
