// A long template head fills its parameters behind the "<".
template <typename ClassPoint,
          typename ClassPlane,
          typename DistanceFunc>
class Clipper
{
};
