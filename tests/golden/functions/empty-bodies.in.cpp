// Empty bodies: "{", break, "}"; a comment inside goes on a line of its own between them.
void a() {}
void b() {

}
void c() { /* nothing yet */ }
void d() {   // later
}
