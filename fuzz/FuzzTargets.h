#pragma once

#include <cstddef>
#include <cstdint>

// Readers of outside bytes, each as a fuzz entry: the bytes are handed to the reader exactly
// as a file on disk would be. Each returns 0 (libFuzzer's "keep going").
namespace hoardfuzz {

int FuzzArchive(const uint8_t* data, size_t size);
int FuzzRaceFile(const uint8_t* data, size_t size);
int FuzzCharacterFile(const uint8_t* data, size_t size);
// A treasure file is read and its total worked out.
int FuzzTreasureFile(const uint8_t* data, size_t size);
// A table file is read, rolled with itself as every nested table, and written as text.
int FuzzTableFile(const uint8_t* data, size_t size);
// The tab-separated text form of a table.
int FuzzTableText(const uint8_t* data, size_t size);
// A document for the output style sheets, turned into a character stat block.
int FuzzXmlDocument(const uint8_t* data, size_t size);
// Rows of a rules source: the first line names the table ("[info Class]"), the rest is its
// tab-separated rows, checked against the shipped schema as the rules compiler does.
int FuzzRuleRows(const uint8_t* data, size_t size);

} // namespace hoardfuzz
