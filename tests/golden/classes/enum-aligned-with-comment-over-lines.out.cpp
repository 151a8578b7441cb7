// ALIGN_ENUM_INITIALIZERS with a comment over several lines behind an enumerator: an "=" inside the comment is never taken for an assignment, and the comment keeps its words.
enum Param
{
    JobSize     = 401,      /* size of a job
    * (= 512 KB at least) */
    Overlap     = 402
};
