// asm statements keep their own layout and move with their place.
void f()
{
    __asm {
        mov eax, 1
        mov ebx, 2
    }
    __asm mov ecx, 3
    asm("nop");
}
