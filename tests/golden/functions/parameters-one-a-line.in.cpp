// ALIGN_FN_PARAMS_LEFT: one parameter a line, each under the first; a comment keeps its line.
void resize(int width, int height,
   bool keep);
void paint(Canvas& canvas, // where
 Brush brush);
