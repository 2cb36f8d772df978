#pragma once

#include <optional>
#include <QString>

struct GuastoPorta;

// The boxes that the reception windows share.

// The heat to download, asked until it is one; nothing when the answer is empty.
std::optional<QString> chiediManche();

void avvisaMancheErrata();
void avvisaNessunaRisposta();
void avvisaGuastoPorta(const GuastoPorta& guasto);
void avvisaDatoErrato();  // an on-line time that cannot be: the reception ends
