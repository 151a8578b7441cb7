// Wrapping on with a margin of 0: the pass runs and copies.
void f()
{
    total = alpha + beta + gamma + delta + epsilon + zeta;
}
