// Forgets the schema macros after a reading of oKstPlatform/entity_schema.def, so that the next reading
// can define them afresh. No include guard: it is meant to be included after every reading.
#undef KST_FIELDS
#undef KST_ENTITY
#undef KST_ENTITY_VIA
#undef KST_OP
#undef KST_RESERVED
#undef KST_END
