// What the engine may do to files beside a database.
#pragma once

/// The name of the engine's file layer with two rules of the program: a database writes its own journal and
/// no other file's, and a write-ahead log counts for nothing beside a database that does not say it is kept
/// with one. A sender of notes would otherwise choose what is deleted, or what a note holds.
[[nodiscard]] const char* StratoFile();
