// ALIGN_TP_PARAMS_LEFT: one template parameter a line, each under the first.
template <class Key,
          class Value,
          class Compare>
class Map;
