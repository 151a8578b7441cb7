// A whole file fenced by TIDEWRIGHT-OFF and TIDEWRIGHT-ON comes out byte for byte, even under the default scheme.
// TIDEWRIGHT-OFF
  #define   TABLE  {  1 ,	2 ,  \
                     3 }  
BEGIN_TABLE( weird, , syntax ]
	int  a  ;   
// TIDEWRIGHT-ON
