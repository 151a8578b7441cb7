// "return" stays on the first line; before-operator style starts the next line with "+".
int f()
{
    return alpha
         + beta
         + gamma
         + deltas;
}
