// Placeholders that keep the places of host operations this library never calls.
//
// Host interfaces are called through their tables of virtual operations, so an operation's position is
// part of the contract. KST_RESERVED_OP(n) declares the n-th operation of an interface when the library
// has no use for it; it does nothing if ever called. It is the one such placeholder: the entity
// schema's KST_RESERVED(Name, N) rows expand to it too (oKstPlatform/entities.h).
#pragma once

#define KST_RESERVED_OP(n) \
  virtual void ReservedOp##n() {}
