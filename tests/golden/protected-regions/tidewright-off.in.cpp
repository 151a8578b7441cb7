// Between TIDEWRIGHT-OFF and TIDEWRIGHT-ON the text is not even parsed: it comes out byte for byte.
int x;
// TIDEWRIGHT-OFF
BEGIN_TABLE( weird, , syntax ]
	{{ unbalanced   
   }}} ((( 
// TIDEWRIGHT-ON
int y;
